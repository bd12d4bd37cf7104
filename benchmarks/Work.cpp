#include "benchmarks/Work.h"

#include "panorel/RecordConversion.h"
#include "tests/support/Topics.h"

QVariantMap attributes()
{
    return {{QStringLiteral("text"), QStringLiteral("Hello")}, {QStringLiteral("is_finish"), true}};
}

QString topic(int number)
{
    static const QStringList known = forwardedTopics() + topicsKeptInside();
    return number < known.size() ? known.at(number) : QStringLiteral("topic.%1").arg(number);
}

QVariantMap faceAttributes(const QVector<FaceInfoPtr> &faces)
{
    return {{QStringLiteral("info"), panorel::toMap(faces)}};
}
