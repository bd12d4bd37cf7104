#include "tests/support/RecordFields.h"

#include "host/Answer.h"
#include "host/FaceInfo.h"
#include "host/Replica.h"

#include <QStringList>

QVariant fields(const ID &id) { return QVariantList{id.id(), id.uuid()}; }

QVariantMap fields(const Replica &replica)
{
    QStringList actions;
    const QList<Action> list = replica.actions();
    for (const Action &action : list)
        actions.append(action.raw());
    return {{QStringLiteral("id"), fields(replica.id())},
            {QStringLiteral("anchor"), fields(replica.anchor())},
            {QStringLiteral("category"), fields(replica.category())},
            {QStringLiteral("text"), replica.text()},
            {QStringLiteral("screen_text"), replica.screenText()},
            {QStringLiteral("url"), replica.url()},
            {QStringLiteral("actions"), actions},
            {QStringLiteral("animation"), static_cast<int>(replica.animation())},
            {QStringLiteral("type"), static_cast<int>(replica.type())}};
}

QVariantMap fields(const Answer &answer)
{
    return {{QStringLiteral("id"), fields(answer.id())},
            {QStringLiteral("source"), static_cast<int>(answer.source())},
            {QStringLiteral("id_pattern"), fields(answer.idPattern())},
            {QStringLiteral("pattern"), answer.pattern()},
            {QStringLiteral("question"), answer.question()},
            {QStringLiteral("replica"), fields(answer.replica())}};
}

QVariantMap fields(const FaceInfo &face)
{
    QVariantList matches;
    const QVector<FaceInfo::FaceScore> scores = face.matches();
    for (const FaceInfo::FaceScore &score : scores)
        matches.append(QVariant(QVariantList{score.type, score.id, score.score}));
    return {{QStringLiteral("id"), face.id()},
            {QStringLiteral("type"), static_cast<int>(face.type())},
            {QStringLiteral("is_tracking"), face.isTracking()},
            {QStringLiteral("id_track"), face.idTrack()},
            {QStringLiteral("gender"), static_cast<int>(face.gender())},
            {QStringLiteral("age"), face.age()},
            {QStringLiteral("emotion"), face.emotion()},
            {QStringLiteral("matches"), matches}};
}
