#include "host/DatabaseDefaults.h"

ID DatabaseDefaults::defaultCategory()
{
    return ID(1, QUuid(QStringLiteral("{3f2b8c1e-5d47-4e0a-b6c9-8d1e2f3a4b03}")));
}
