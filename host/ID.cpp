#include "host/ID.h"

ID::ID(const unsigned &id, const QUuid &uuid)
    : m_id(id)
    , m_uuid(uuid)
{ }

unsigned ID::id() const { return m_id; }

void ID::setId(const unsigned &id) { m_id = id; }

QUuid ID::uuid() const { return m_uuid; }

void ID::setUuid(const QUuid &uuid) { m_uuid = uuid; }

bool operator==(const ID &left, const ID &right)
{
    return left.id() == right.id() && left.uuid() == right.uuid();
}
