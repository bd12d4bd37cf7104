#include "panorel/handlers/DriveControlHandler.h"

#include "tests/handlers/DeviceTestCase.h"

using panorel::DriveControlHandler;

class DriveControlHandlerTest : public DeviceTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        install(new DriveControlHandler(host), QStringLiteral("system.drive.control"),
                QStringLiteral("DriveControlHandler"));
    }

    /// The host calls for the page's request.
    QStringList steer(const QByteArray &json)
    {
        if (!ask(json).isEmpty())
            QTest::qFail("the handler answered", __FILE__, __LINE__);
        return done();
    }

private Q_SLOTS:
    void doesWhatIsPresent_data();
    void doesWhatIsPresent();
    void readsNumbers_data();
    void readsNumbers();
    void survivesNumbersOutOfRange_data();
    void survivesNumbersOutOfRange();
    void readsTruthValues_data();
    void readsTruthValues();
    void survivesClearingInACall_data();
    void survivesClearingInACall();
    void toldByEachHandler();
    void livesWithoutAHost();
};

void DriveControlHandlerTest::doesWhatIsPresent_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("calls");
    const QString point = QStringLiteral("drivePoint(7)");
    const QString pause = QStringLiteral("drivePause(true)");
    const QString mode = QStringLiteral("driveMode(2)");
    const QString charger = QStringLiteral("driveCharger(true)");
    const auto row = [](const char *json, const QStringList &calls) {
        QTest::newRow(json) << QByteArray(json) << calls;
    };
    row("{}", {});
    row(R"({"drive_point": 7})", {point});
    row(R"({"drive_pause": true})", {pause});
    row(R"({"drive_pause": false})", {QStringLiteral("drivePause(false)")});
    row(R"({"drive_mode": 2})", {mode});
    row(R"({"drive_charger": true})", {charger});
    row(R"({"drive_charger": false})", {QStringLiteral("driveCharger(false)")});
    row(R"({"drive_charger": true, "drive_pause": true})", {pause, charger});
    row(R"({"drive_mode": 2, "drive_point": 7})", {point, mode});
    row(R"({"drive_mode": 2, "drive_charger": true})", {mode, charger});
    row(R"({"drive_mode": 2, "drive_pause": true})", {pause, mode});
    row(R"({"drive_charger": true, "drive_mode": 2, "drive_pause": true, "drive_point": 7})",
        {point, pause, mode, charger});
    row(R"({"drive": 1, "drive_stop": true, "Drive_point": 7, "point": 7})", {});
}

void DriveControlHandlerTest::doesWhatIsPresent()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, calls);
    makesUpAttributes({"Drive_point", "drive", "drive_stop", "point"});
    create(plugin());
    QCOMPARE(steer(json), calls);
    QCOMPARE(steer(json), calls); // each time anew
}

void DriveControlHandlerTest::readsNumbers_data() { addIntegers(); }

void DriveControlHandlerTest::readsNumbers()
{
    QFETCH(QByteArray, value);
    QFETCH(int, number);
    QFETCH(int, lower16);
    create(plugin());
    QCOMPARE(steer("{\"drive_point\": " + value + ", \"drive_mode\": " + value + '}'),
             QStringList({QStringLiteral("drivePoint(%1)").arg(lower16),
                          QStringLiteral("driveMode(%1)").arg(number)}));
}

void DriveControlHandlerTest::survivesNumbersOutOfRange_data() { addNumbersOutOfRange(); }

void DriveControlHandlerTest::survivesNumbersOutOfRange()
{
    QFETCH(QByteArray, value);
    create(plugin());
    QCOMPARE(steer("{\"drive_point\": " + value + ", \"drive_mode\": " + value + '}').size(), 2);
}

void DriveControlHandlerTest::readsTruthValues_data() { addTruthValues(); }

void DriveControlHandlerTest::readsTruthValues()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, truth);
    const QString read = QVariant(truth).toString();
    create(plugin());
    QCOMPARE(steer("{\"drive_pause\": " + value + ", \"drive_charger\": " + value + '}'),
             QStringList({QStringLiteral("drivePause(%1)").arg(read),
                          QStringLiteral("driveCharger(%1)").arg(read)}));
}

void DriveControlHandlerTest::survivesClearingInACall_data()
{
    QTest::addColumn<bool>("renewed");
    QTest::newRow("cleared") << false;
    QTest::newRow("renewed") << true;
}

void DriveControlHandlerTest::survivesClearingInACall()
{
    QFETCH(bool, renewed);
    create(plugin());
    connect(plugin(), &PluginInterface::signalDrivePoint, this, [this, renewed] {
        brocker()->clear();
        if (renewed)
            create(plugin());
    });
    send(R"({"drive_point": 1, "drive_pause": true, "drive_mode": 3, "drive_charger": false})");
    QCOMPARE(heard(), QStringList());
    QCOMPARE(done(),
             QStringList({QStringLiteral("drivePoint(1)"), QStringLiteral("drivePause(true)"),
                          QStringLiteral("driveMode(3)"), QStringLiteral("driveCharger(false)")}));
}

void DriveControlHandlerTest::toldByEachHandler()
{
    create(plugin());
    create(plugin());
    send(R"({"drive_point": 1})");
    QCOMPARE(done(),
             QStringList({QStringLiteral("drivePoint(1)"), QStringLiteral("drivePoint(1)")}));
}

void DriveControlHandlerTest::livesWithoutAHost()
{
    create(nullptr);
    QCOMPARE(
        steer(R"({"drive_point": 1, "drive_pause": true, "drive_mode": 3, "drive_charger": true})"),
        QStringList());
}

QTEST_GUILESS_MAIN(DriveControlHandlerTest)
#include "tst_drivecontrolhandler.moc"
