#include "tests/support/HostCall.h"

#include <QtTest>

bool operator==(const HostCall &left, const HostCall &right)
{
    return left.name == right.name && left.arguments == right.arguments;
}

char *toString(const HostCall &call)
{
    QString text;
    QDebug(&text) << call.name << call.arguments;
    return QTest::toString(text);
}

QDebug operator<<(QDebug debug, const ID &id)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "ID(" << id.id() << ", " << id.uuid() << ')';
    return debug;
}
