#include "tests/protocol/Contract.h"

#include "panorel/Constants.h"
#include "panorel/PanorelMessageHandler.h"
#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQueueBrocker.h"
#include "tests/support/MessageContract.h"
#include "tests/support/TestCase.h"

#include <QMap>
#include <QSignalSpy>

using panorel::Message;
using panorel::PanorelProxy;
using panorel::PanorelQueueBrocker;

namespace {

using Values = QMap<QString, QString>;

/// Name and value of each constant that the header declares.
Values constants()
{
    return {
#include "constants.inc"
    };
}

} // namespace

/// Holds the contract of all topics against the library, and checks what checks messages.
class ContractTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void namesEachConstant();
    void knowsWhatReachesThePage();
    void findsFaults_data();
    void findsFaults();
};

void ContractTest::namesEachConstant()
{
    Values named;
    const QJsonArray topics = contractTopics();
    for (const QJsonValue &topic : topics)
        named.insert(member(topic, QStringLiteral("constant")), topicOf(topic));
    QCOMPARE(topics.size(), 96);
    QCOMPARE(named, constants());
}

void ContractTest::knowsWhatReachesThePage()
{
    makesUpMessages(); // without attributes
    PanorelQueueBrocker brocker;
    PanorelProxy proxy(&brocker);
    new panorel::PanorelMessageHandler(&proxy);
    QSignalSpy spy(&proxy, &PanorelProxy::message);
    const QJsonArray topics = contractTopics();
    for (const QJsonValue &topic : topics)
        brocker.publish(Message(topicOf(topic)));

    QStringList reached;
    for (const QVariantList &arguments : qAsConst(spy))
        reached.append(arguments.first().toJsonObject().value(QStringLiteral("type")).toString());
    reached.sort();
    QCOMPARE(reached, contractTopicsOfThePage());
    QCOMPARE(reached.size(), 65);
}

void ContractTest::findsFaults_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("isSound");
    const auto row = [](const char *name, bool isSound, const char *message) {
        QTest::newRow(name) << QString::fromUtf8(message) << isSound;
    };
    row("told exactly so", true, R"({"id": "", "type": "system.drive.mode", "mode": 2})");
    row("told another kind", false, R"({"id": "", "type": "system.drive.mode", "mode": "2"})");
    row("told a fraction", false, R"({"id": "", "type": "system.drive.mode", "mode": 2.5})");
    row("told 64 bits", true,
        R"({"id": "", "type": "face.recognize.general", "general": 9007199254740991})");
    row("told too little", false, R"({"id": "", "type": "system.drive.mode"})");
    row("told too much", false,
        R"({"id": "", "type": "system.drive.mode", "mode": 2, "speed": 1})");
    row("told a variant", true, R"({"type": "sip.events", "event": "tone", "tone": 5})");
    row("told two variants in one", false,
        R"({"type": "sip.events", "event": "tone", "tone": 5, "state": 1})");
    row("told a name out of a list", false, R"({"type": "dispenser.sensor", "sensor": "Other"})");
    row("told records under random keys", true,
        R"({"type": "system.settings.load", "settings":
            {"{0b6f3c1e-7a54-4d2b-8e19-5f0c9d7a3b61}":
             {"settings_type": "system", "group": "a", "name": "b", "value": null}}})");
    row("told records under other keys", false,
        R"({"type": "system.settings.load", "settings":
            {"b": {"settings_type": "system", "group": "a", "name": "b", "value": null}}})");
    row("told a broken record", false,
        R"({"type": "system.settings.load", "settings":
            {"{0b6f3c1e-7a54-4d2b-8e19-5f0c9d7a3b61}": {"settings_type": "system"}}})");
    row("told whatever the host sends", true, R"({"type": "parameters.response", "a": [1]})");
    row("asked any kind", true, R"({"type": "system.language.set", "language": [1]})");
    row("asked another name", false, R"({"type": "system.language.set", "tongue": "en"})");
    row("asked without attributes", true, R"({"type": "system.language.set"})");
    row("asked half a character", true,
        R"({"type": "system.log", "message": "\ud800 \\\ud800 \\ud800"})");
    row("free", true, R"({"type": "cookie.set", "a": 1})");
    row("no topic of the contract", true, R"({"type": "my.own", "a": 1})");
    row("no object", false, "[1]");
}

void ContractTest::findsFaults()
{
    QFETCH(QString, message);
    QFETCH(bool, isSound);
    const QStringList faults = MessageContract::instance().faults(message);
    QCOMPARE(faults.isEmpty(), isSound);
}

QTEST_GUILESS_MAIN(ContractTest)
#include "tst_contract.moc"
