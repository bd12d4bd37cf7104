#pragma once

#include "host/Export.h"

#include <QString>

/// One action of a replica (a gesture, a screen change), in the robot core's own notation.
class PANOREL_HOST_EXPORT Action
{
public:
    Action() = default;
    explicit Action(const QString &raw);

    /// The action's text as the robot core wrote it; never holds a comma.
    QString raw() const;
    void setRaw(const QString &raw);

private:
    QString m_raw;
};
