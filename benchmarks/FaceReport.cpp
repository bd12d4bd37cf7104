#include "benchmarks/FaceReport.h"

#include <QUuid>

QVector<FaceInfoPtr> faceReport(int faces, int matches)
{
    QVector<FaceInfoPtr> report;
    for (int i = 0; i < faces; ++i) {
        QVector<FaceInfo::FaceScore> scores;
        for (int match = 0; match < matches; ++match)
            scores.append({FaceInfo::User, 1000 + match, 0.99 - 0.01 * match});
        const auto face = FaceInfoPtr::create();
        face->setId(1000 + i);
        face->setType(FaceInfo::User);
        face->setTracking(i == 0);
        face->setIdTrack(70 + i);
        face->setAge(20.5 + i);
        face->setEmotion(QStringLiteral("happiness"));
        face->setMatches(scores);
        report.append(face);
    }
    return report;
}

namespace naive {

namespace {

QString key() { return QUuid::createUuid().toString(); }

QVariantMap matchesOf(const FaceInfo &face)
{
    QVariantMap matches;
    const auto scores = face.matches();
    for (const FaceInfo::FaceScore &score : scores) {
        QVariantMap match;
        match[QStringLiteral("type")] = score.type;
        match[QStringLiteral("id")] = score.id;
        match[QStringLiteral("score")] = score.score;
        matches[key()] = match;
    }
    return matches;
}

} // namespace

QVariantMap faceInfo(const QVector<FaceInfoPtr> &faces)
{
    QVariantMap all;
    for (const FaceInfoPtr &face : faces) {
        QVariantMap map;
        map[QStringLiteral("type")] = static_cast<int>(face->type());
        map[QStringLiteral("is_tracking")] = face->isTracking();
        map[QStringLiteral("id_track")] = face->idTrack();
        map[QStringLiteral("id")] = face->id();
        map[QStringLiteral("gender")] = static_cast<int>(face->gender());
        map[QStringLiteral("age")] = face->age();
        map[QStringLiteral("emotion")] = face->emotion();
        map[QStringLiteral("matches")] = matchesOf(*face);
        all[key()] = map;
    }
    return all;
}

} // namespace naive
