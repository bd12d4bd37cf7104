#include "panorel/RecordConversion.h"

#include "panorel/Attributes.h"
#include "panorel/RandomUuid.h"

#include "host/DatabaseDefaults.h"

#include <QDebug>
#include <QJsonValue>
#include <QStringList>
#include <QUuid>

#include <cmath>
#include <initializer_list>

namespace panorel {

namespace {

QString actionsText(const Replica &replica)
{
    QStringList texts;
    const QList<Action> actions = replica.actions();
    for (const Action &action : actions)
        texts.append(action.raw());
    return texts.join(QLatin1Char(','));
}

/// A map with the keys of @p form, and with values that come by the order of these keys. Nothing is
/// looked up, which matters for what the camera reports many times a second.
QVariantMap filled(const QVariantMap &form, std::initializer_list<QVariant> values)
{
    Q_ASSERT(static_cast<std::size_t>(form.size()) == values.size());
    QVariantMap map = form;
    auto field = map.begin();
    for (const QVariant &value : values)
        *field++ = value;
    return map;
}

QVariantMap formOf(std::initializer_list<QString> keys)
{
    QVariantMap form;
    for (const QString &key : keys)
        form.insert(key, QVariant());
    return form;
}

QVariantMap toMap(const FaceInfo::FaceScore &match)
{
    static const QVariantMap form =
        formOf({QStringLiteral("id"), QStringLiteral("score"), QStringLiteral("type")});
    return filled(form, {match.id, match.score, match.type});
}

unsigned readIdNumber(const QJsonValue &value)
{
    const double number = value.toDouble();
    if (number != std::floor(number) || number < -2147483648.0 || number > 4294967295.0)
        return 0;
    return static_cast<unsigned>(static_cast<long long>(number));
}

FaceInfo::FaceScore readMatch(const QJsonObject &json)
{
    FaceInfo::FaceScore match;
    match.type = json.value(QStringLiteral("type")).toInt();
    match.id = toInt64(json.value(QStringLiteral("id")));
    match.score = json.value(QStringLiteral("score")).toDouble();
    return match;
}

QVector<FaceInfo::FaceScore> readMatches(const QJsonObject &json)
{
    QVector<FaceInfo::FaceScore> matches;
    for (const QJsonValue &value : json) {
        if (value.isObject())
            matches.append(readMatch(value.toObject()));
    }
    return matches;
}

} // namespace

QVariantMap toMap(const ID &id)
{
    return {{QStringLiteral("id"), id.id()}, {QStringLiteral("uuid"), id.uuid()}};
}

QVariantMap toMap(const Replica &replica, ScreenText screenText)
{
    QVariantMap map{{QStringLiteral("id"), toMap(replica.id())},
                    {QStringLiteral("anchor"), toMap(replica.anchor())},
                    {QStringLiteral("category"), toMap(replica.category())},
                    {QStringLiteral("text"), replica.text()},
                    {QStringLiteral("url"), replica.url()},
                    {QStringLiteral("actions"), actionsText(replica)},
                    {QStringLiteral("animation"), static_cast<int>(replica.animation())},
                    {QStringLiteral("type"), static_cast<int>(replica.type())}};
    if (screenText == ScreenText::Included)
        map.insert(QStringLiteral("screen_text"), replica.screenText());
    return map;
}

QVariantMap toMap(const Answer &answer)
{
    return {{QStringLiteral("id"), toMap(answer.id())},
            {QStringLiteral("source"), static_cast<int>(answer.source())},
            {QStringLiteral("id_pattern"), toMap(answer.idPattern())},
            {QStringLiteral("pattern"), answer.pattern()},
            {QStringLiteral("question"), answer.question()},
            {QStringLiteral("replica"), toMap(answer.replica())}};
}

QVariantMap toMap(const FaceInfo &face)
{
    QVariantMap matches;
    const QVector<FaceInfo::FaceScore> scores = face.matches();
    for (const FaceInfo::FaceScore &score : scores)
        matches.insert(randomKey(), toMap(score));

    static const QVariantMap form =
        formOf({QStringLiteral("age"), QStringLiteral("emotion"), QStringLiteral("gender"),
                QStringLiteral("id"), QStringLiteral("id_track"), QStringLiteral("is_tracking"),
                QStringLiteral("matches"), QStringLiteral("type")});
    return filled(form,
                  {face.age(), face.emotion(), static_cast<int>(face.gender()), face.id(),
                   face.idTrack(), face.isTracking(), matches, static_cast<int>(face.type())});
}

QVariantMap toMap(const QVector<QSharedPointer<FaceInfo>> &faces)
{
    QVariantMap all;
    for (const QSharedPointer<FaceInfo> &face : faces) {
        if (face)
            all.insert(randomKey(), toMap(*face));
    }
    return all;
}

QString randomKey() { return randomUuid().toString(); }

ID readId(const QJsonValue &value)
{
    const QJsonObject json = value.toObject();
    return ID(readIdNumber(json.value(QStringLiteral("id"))),
              QUuid(json.value(QStringLiteral("uuid")).toString()));
}

Replica readReplica(const QJsonObject &json)
{
    Replica replica;
    replica.setId(readId(json.value(QStringLiteral("id"))));
    replica.setAnchor(readId(json.value(QStringLiteral("anchor"))));
    replica.setCategory(readId(json.value(QStringLiteral("category"))));
    replica.setText(json.value(QStringLiteral("text")).toString());
    replica.setScreenText(json.value(QStringLiteral("screen_text")).toString());
    replica.setUrl(json.value(QStringLiteral("url")).toString());
    replica.setActions(json.value(QStringLiteral("actions")).toString());
    replica.setAnimation(static_cast<Animation>(json.value(QStringLiteral("animation")).toInt()));
    replica.setType(static_cast<Replica::Type>(json.value(QStringLiteral("type")).toInt()));
    return replica;
}

Answer readAnswer(const QJsonObject &json)
{
    Answer answer;
    answer.setId(readId(json.value(QStringLiteral("id"))));
    answer.setSource(static_cast<Answer::Source>(json.value(QStringLiteral("source")).toInt()));
    answer.setIdPattern(readId(json.value(QStringLiteral("id_pattern"))));
    answer.setPattern(json.value(QStringLiteral("pattern")).toString());
    answer.setQuestion(json.value(QStringLiteral("question")).toString());
    const QJsonValue replica = json.value(QStringLiteral("replica"));
    if (!replica.isNull() && !replica.isUndefined())
        answer.setReplica(readReplica(replica.toObject()));
    return answer;
}

FaceInfo readFace(const QJsonObject &json)
{
    FaceInfo face;
    face.setId(toInt64(json.value(QStringLiteral("id"))));
    face.setType(static_cast<FaceInfo::Type>(json.value(QStringLiteral("type")).toInt()));
    face.setTracking(json.value(QStringLiteral("is_tracking")).toBool());
    face.setIdTrack(json.value(QStringLiteral("id_track")).toInt());
    face.setGender(static_cast<Gender>(json.value(QStringLiteral("gender")).toInt()));
    face.setAge(json.value(QStringLiteral("age")).toDouble());
    face.setEmotion(json.value(QStringLiteral("emotion")).toString());
    face.setMatches(readMatches(json.value(QStringLiteral("matches")).toObject()));
    return face;
}

QVariant readCategory(const QVariantMap &attributes)
{
    const QString key = QStringLiteral("category");
    const auto category = attributes.constFind(key);
    if (category == attributes.constEnd())
        return QVariant::fromValue(DatabaseDefaults::defaultCategory());
    if (category->userType() == QMetaType::QString)
        return category->toString();
    return QVariant::fromValue(readId(objectAttribute(attributes, key)));
}

FaceInfo readFaceAttribute(const QVariantMap &attributes)
{
    const QString key = QStringLiteral("face");
    if (!attributes.contains(key))
        return FaceInfo();
    const QJsonObject json = objectAttribute(attributes, key);
    qDebug() << "face_map" << json;
    return readFace(json);
}

} // namespace panorel
