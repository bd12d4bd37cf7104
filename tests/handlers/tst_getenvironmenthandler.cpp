#include "panorel/handlers/GetEnvironmentHandler.h"

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"
#include "tests/support/TestPlatform.h"

#include <QJsonObject>

using panorel::GetEnvironmentHandler;
using panorel::Message;

class GetEnvironmentHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        HandlerTestCase::setUp();
        TestPlatform &platform = TestPlatform::instance();
        platform = TestPlatform();
        platform.robot = QUuid(QStringLiteral("{1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}"));
        platform.owner = QUuid(QStringLiteral("{9f1c2a34-5d6e-4f70-8a9b-0c1d2e3f4a5b}"));
        platform.name = QStringLiteral("Robin");
        platform.dateOfCreation = QDateTime(QDate(2019, 4, 1), QTime(10, 15));
        platform.output = QStringLiteral("robin\n");
        watch(QStringLiteral("system.environment.load"));
        subscribe(new GetEnvironmentHandler(brocker()), QStringLiteral("system.environment.get"));
    }

    Message ask(const QByteArray &json)
    {
        request(fromPage(json), QStringLiteral("GetEnvironmentHandler"));
        log().skipDebug(); // the broker's line of the reply
        if (replies().count() != 1)
            QTest::qFail("there is not one reply", __FILE__, __LINE__);
        return replies().take();
    }

private Q_SLOTS:
    void tellsWhoTheRobotIs();
    void runsTheCommandOnEachRequest();
    void ignoresAttributes();
    void tellsWhatAFailedCommandGave();
    void reachesThePageAsTexts();
};

void GetEnvironmentHandlerTest::tellsWhoTheRobotIs()
{
    const Message reply = ask("{}");
    QCOMPARE(reply.type(), QStringLiteral("system.environment.load"));
    const TestPlatform &platform = TestPlatform::instance();
    const QVariantMap environment{
        {QStringLiteral("uuid_robot"), platform.robot},
        {QStringLiteral("uuid_owner"), platform.owner},
        {QStringLiteral("name"), QStringLiteral("Robin")},
        {QStringLiteral("id"), QStringLiteral("robin\n")}, // with its line break
        {QStringLiteral("date_of_creation"), QStringLiteral("2019-04-01T10:15:00")}};
    QCOMPARE(reply.attributes(), QVariantMap({{QStringLiteral("environment"), environment}}));
}

void GetEnvironmentHandlerTest::runsTheCommandOnEachRequest()
{
    ask("{}");
    ask("{}");
    const HostCall command{QStringLiteral("exec"), {QStringLiteral("uname -n")}};
    QCOMPARE(TestPlatform::instance().calls, QVector<HostCall>({command, command}));
}

void GetEnvironmentHandlerTest::ignoresAttributes()
{
    makesUpAttributes({"environment", "name"});
    const QVariantMap plain = ask("{}").attributes();
    QCOMPARE(ask(R"({"environment": 1, "name": "x", "id": "y"})").attributes(), plain);
}

void GetEnvironmentHandlerTest::tellsWhatAFailedCommandGave()
{
    TestPlatform::instance().output.clear();
    const QVariantMap environment =
        ask("{}").attributes().value(QStringLiteral("environment")).toMap();
    QCOMPARE(environment.size(), 5);
    QCOMPARE(environment.value(QStringLiteral("id")), QVariant(QString()));
}

void GetEnvironmentHandlerTest::reachesThePageAsTexts()
{
    const QJsonObject environment =
        ask("{}").toJson().value(QStringLiteral("environment")).toObject();
    QCOMPARE(environment.value(QStringLiteral("uuid_robot")),
             QJsonValue(QStringLiteral("{1b9d6bcd-bbfd-4b2d-9b5d-ab8dfbbd4bed}")));
    QCOMPARE(environment.value(QStringLiteral("uuid_owner")),
             QJsonValue(QStringLiteral("{9f1c2a34-5d6e-4f70-8a9b-0c1d2e3f4a5b}")));
    QCOMPARE(environment.value(QStringLiteral("date_of_creation")),
             QJsonValue(QStringLiteral("2019-04-01T10:15:00")));
}

QTEST_GUILESS_MAIN(GetEnvironmentHandlerTest)
#include "tst_getenvironmenthandler.moc"
