#include "simulator/core/SimulatedLanguage.h"

namespace simulator {

SimulatedLanguage::SimulatedLanguage(QObject *parent)
    : QObject(parent)
{ }

QString SimulatedLanguage::code() const { return m_code; }

void SimulatedLanguage::setCode(const QString &code)
{
    if (code.isEmpty() || code == m_code)
        return;
    m_code = code;
    Q_EMIT changed(code);
}

} // namespace simulator
