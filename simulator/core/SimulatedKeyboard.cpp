#include "simulator/core/SimulatedKeyboard.h"

namespace simulator {

SimulatedKeyboard::SimulatedKeyboard(QObject *parent)
    : IKeyboard(parent)
{ }

QString SimulatedKeyboard::locale() { return m_locale; }

void SimulatedKeyboard::setLocale(const QString &locale)
{
    if (m_locale == locale)
        return;
    m_locale = locale;
    Q_EMIT localeChanged(locale);
}

bool SimulatedKeyboard::isVisible() { return m_visible; }

void SimulatedKeyboard::setVisible(const bool &visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    Q_EMIT visibleChanged(visible);
}

} // namespace simulator
