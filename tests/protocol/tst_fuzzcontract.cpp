#include "tests/fuzz/Contract.h"
#include "tests/protocol/Contract.h"
#include "tests/support/TestCase.h"

namespace {

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

QStringList attributesOf(const QJsonObject &topic)
{
    return topic.value(QStringLiteral("attributes"))
        .toObject()
        .value(QStringLiteral("properties"))
        .toObject()
        .keys();
}

QStringList directAnswersOf(const QJsonObject &topic)
{
    QStringList answers;
    const QJsonArray replies = topic.value(QStringLiteral("replies")).toArray();
    for (const QJsonValue &reply : replies)
        if (member(reply, QStringLiteral("how")) == QLatin1String("synchronous"))
            answers.append(topicOf(reply));
    answers.removeDuplicates();
    return answers;
}

} // namespace

/// Holds the table from which hostile requests are made against the contract of all topics.
class FuzzContractTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void triesEachRequest();
    void triesEachAttribute_data();
    void triesEachAttribute();
};

void FuzzContractTest::triesEachRequest()
{
    QStringList topics;
    const QJsonArray all = contractTopics();
    for (const QJsonValue &topic : all)
        if (topic.toObject().contains(QStringLiteral("handler")))
            topics.append(topicOf(topic));
    QStringList tried;
    for (const Request &request : requests())
        tried.append(request.topic);
    QCOMPARE(sorted(tried), sorted(topics));
}

void FuzzContractTest::triesEachAttribute_data()
{
    QTest::addColumn<QJsonObject>("topic");
    const QJsonArray topics = contractTopics();
    for (const QJsonValue &topic : topics)
        if (topic.toObject().contains(QStringLiteral("handler")))
            QTest::newRow(qPrintable(topicOf(topic))) << topic.toObject();
}

void FuzzContractTest::triesEachAttribute()
{
    QFETCH(QJsonObject, topic);
    for (const Request &request : requests()) {
        if (request.topic != topicOf(topic))
            continue;
        QStringList names;
        for (const Field &field : request.fields)
            names.append(field.name);
        // Kept inside the robot, but a page may send them, too.
        names.removeOne(QStringLiteral("rect"));
        names.removeOne(QStringLiteral("info"));
        QCOMPARE(sorted(names), attributesOf(topic));
        // Playback may fail before the request returns.
        QStringList answers = request.answers;
        answers.removeOne(QStringLiteral("system.play.status"));
        QCOMPARE(sorted(answers), sorted(directAnswersOf(topic)));
    }
}

QTEST_GUILESS_MAIN(FuzzContractTest)
#include "tst_fuzzcontract.moc"
