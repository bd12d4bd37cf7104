#pragma once

#include "host/IKeyboard.h"

namespace simulator {

/// The on-screen keyboard: only its layout and whether it shows. GUI thread.
class SimulatedKeyboard : public IKeyboard
{
    Q_OBJECT

public:
    explicit SimulatedKeyboard(QObject *parent = nullptr);

    QString locale() override;
    void setLocale(const QString &locale) override;
    bool isVisible() override;
    void setVisible(const bool &visible) override;

Q_SIGNALS:
    void localeChanged(const QString &locale);
    void visibleChanged(bool visible);

private:
    QString m_locale = QStringLiteral("en_GB");
    bool m_visible = false;
};

} // namespace simulator
