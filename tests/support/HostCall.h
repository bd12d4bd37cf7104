#pragma once

#include "host/ID.h"

#include <QDebug>
#include <QString>
#include <QVariantList>
#include <QVector>

/// One request that the library made of the host.
struct HostCall
{
    QString name;
    QVariantList arguments;
};

/// Arguments that hold an ID compare by value once a TestPlugin was made.
bool operator==(const HostCall &left, const HostCall &right);
/// Shows the call when a comparison fails.
char *toString(const HostCall &call);

QDebug operator<<(QDebug debug, const ID &id);
