#pragma once

#include "host/Export.h"

#include <QMetaType>
#include <QUuid>

/// Identity of a dialog record (replica, answer, category, pattern): a number and a UUID.
class PANOREL_HOST_EXPORT ID
{
public:
    /// Number 0 and the null UUID.
    ID() = default;
    ID(const unsigned &id, const QUuid &uuid);

    unsigned id() const;
    void setId(const unsigned &id);

    QUuid uuid() const;
    void setUuid(const QUuid &uuid);

private:
    unsigned m_id = 0;
    QUuid m_uuid;
};

PANOREL_HOST_EXPORT bool operator==(const ID &left, const ID &right);
inline bool operator!=(const ID &left, const ID &right) { return !(left == right); }

Q_DECLARE_METATYPE(ID)
