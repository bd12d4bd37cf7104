#pragma once

#include "host/Export.h"

#include <QObject>
#include <QString>

/// Expands macros in the texts that the robot speaks.
class PANOREL_HOST_EXPORT IMacrosReplacer : public QObject
{
    Q_OBJECT

public:
    explicit IMacrosReplacer(QObject *parent = nullptr);
    ~IMacrosReplacer() override;

    /// Makes @p name expand to @p value in later texts. Must not call back into the library.
    virtual void setMacros(const QString &name, const QString &value) = 0;
    /// Forgets @p name. Must not call back into the library.
    virtual void removeMacros(const QString &name) = 0;
};
