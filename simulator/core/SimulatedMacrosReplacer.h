#pragma once

#include "host/IMacrosReplacer.h"

#include <QMap>

namespace simulator {

/// Keeps the macros in memory and expands them: "%name%" becomes the value of the macro "name".
/// GUI thread.
class SimulatedMacrosReplacer : public IMacrosReplacer
{
    Q_OBJECT

public:
    explicit SimulatedMacrosReplacer(QObject *parent = nullptr);

    void setMacros(const QString &name, const QString &value) override;
    void removeMacros(const QString &name) override;

    /// Replaces every "%name%" whose name is known; any other text stays. Values are not expanded
    /// again.
    QString expand(const QString &text) const;

    /// Macro name to value.
    QMap<QString, QString> macros() const;

private:
    QMap<QString, QString> m_macros;
};

} // namespace simulator
