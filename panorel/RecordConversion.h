#pragma once

#include "host/Answer.h"
#include "host/FaceInfo.h"
#include "host/ID.h"
#include "host/Replica.h"

#include <QJsonObject>
#include <QVariant>

namespace panorel {

// The page's form of the dialog and face records: what is written here can be read here, so a page
// may hand back what it received.
//
// Inside a record a key counts only when its JSON kind is the expected one; otherwise the field keeps
// its default. Numbers that are taken as an integer are 0 when they are not integral or out of range.

/// {"id": number, "uuid": uuid}.
QVariantMap toMap(const ID &id);

/// Whether a replica's map says what the screen shows.
enum class ScreenText { Included, LeftOut };

/// {"id", "anchor", "category", "text", "screen_text", "url", "actions", "animation", "type"};
/// the actions are one text with commas between them.
QVariantMap toMap(const Replica &replica, ScreenText screenText = ScreenText::Included);

/// {"id", "source", "id_pattern", "pattern", "question", "replica"}.
QVariantMap toMap(const Answer &answer);

/// {"type", "is_tracking", "id_track", "id", "gender", "age", "emotion", "matches"}; the matches
/// stand under random UUIDs, which carry no meaning.
QVariantMap toMap(const FaceInfo &face);

/// The faces under random UUIDs likewise. Null pointers are passed over.
QVariantMap toMap(const QVector<QSharedPointer<FaceInfo>> &faces);

/// A key that no other has, for a collection of records that is sent as a map.
QString randomKey();

/// The number keeps all 32 bits: integral numbers from -2147483648 to 4294967295 count.
ID readId(const QJsonValue &value);
Replica readReplica(const QJsonObject &json);
/// A "replica" that is null counts as absent.
Answer readAnswer(const QJsonObject &json);
/// "matches" counts only as an object; the names of its members are passed over.
FaceInfo readFace(const QJsonObject &json);

/// What a replica is asked for with: "category" as a name when it holds a text, as an ID when it
/// holds anything else, and the dialog's default category when it is absent.
QVariant readCategory(const QVariantMap &attributes);

/// The attribute "face", which is also written to the default logging category when present.
FaceInfo readFaceAttribute(const QVariantMap &attributes);

} // namespace panorel
