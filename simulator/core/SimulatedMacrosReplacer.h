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

    /// What the macros stand for that nobody has set: name to value. A macro that is removed falls
    /// back to it.
    void setDefaults(const QMap<QString, QString> &defaults);

    /// Never makes a text longer than 100000 characters: what is left stays as it is.
    /// Replaces every "%name%" whose name is known; any other text stays. Values are not expanded
    /// again. @p personal goes before the defaults, but not before what was set.
    QString expand(const QString &text,
                   const QMap<QString, QString> &personal = QMap<QString, QString>()) const;

    /// Those that were set: macro name to value.
    QMap<QString, QString> macros() const;

private:
    QMap<QString, QString> m_macros;
    QMap<QString, QString> m_defaults;
};

} // namespace simulator
