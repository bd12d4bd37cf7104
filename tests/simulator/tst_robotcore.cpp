#include "simulator/core/RobotCore.h"

#include "host/DatabaseDefaults.h"
#include "host/IDevice.h"
#include "host/RobotInfo.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/RobotIdentity.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedKeyboard.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedPlugin.h"
#include "simulator/core/SimulatedPrinter.h"
#include "simulator/core/SimulatedScanner.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "tests/support/TestCase.h"

#include <QTemporaryDir>

using simulator::RobotCore;

class RobotCoreTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void handsOutItsDevices();
    void handsOutNullForMissingDevices();
    void givesSettings();
    void givesTheMailAccount();
    void keepsSettingsInItsFolder();
    void passesRequestsToItsParts();
    void answersRequestsThatReturnAValue();
    void keyboardShowsAndHides();
    void tellsWhoItIs();
    void keepsPeopleInItsDataFolder();
    void devicesOutliveTheCore();
};

void RobotCoreTest::handsOutItsDevices()
{
    const RobotCore core;
    const PluginInterface *plugin = core.plugin();
    QCOMPARE(plugin->device(Device::CardDispenser).data(), core.devices().dispenser.data());
    QCOMPARE(plugin->device(Device::PassportScanner).data(), core.devices().passportScanner.data());
    QCOMPARE(plugin->device(Device::DocumentScanner).data(), core.devices().documentScanner.data());
    QCOMPARE(plugin->device(Device::Printer).data(), core.devices().printer.data());
    QCOMPARE(plugin->printer(Device::Printer).data(), core.devices().printer.data());
    QVERIFY(plugin->printer(Device::CardDispenser).isNull());
    QVERIFY(plugin->device(static_cast<Device>(1)).isNull());
    QVERIFY(core.devices().passportScanner != core.devices().documentScanner);
    QVERIFY(plugin->keyboard());
    QVERIFY(plugin->databaseUsers());
    QVERIFY(plugin->interactionService());
    QVERIFY(plugin->macrosReplacer());
}

void RobotCoreTest::handsOutNullForMissingDevices()
{
    const RobotCore core(RobotCore::Equipment{false, false, false, false, false, false});
    const PluginInterface *plugin = core.plugin();
    QVERIFY(plugin->printer(Device::Printer).isNull());
    QVERIFY(plugin->device(Device::Printer).isNull());
    QVERIFY(plugin->device(Device::CardDispenser).isNull());
    QVERIFY(plugin->device(Device::PassportScanner).isNull());
    QVERIFY(plugin->device(Device::DocumentScanner).isNull());
    QVERIFY(plugin->keyboard().isNull());
    QVERIFY(plugin->databaseUsers().isNull());
    QVERIFY(plugin->interactionService());
    QVERIFY(plugin->macrosReplacer());
}

void RobotCoreTest::givesSettings()
{
    const RobotCore core;
    core.plugin()->applicationSettings().setValue(QStringLiteral("/own/a"), 1);
    core.plugin()->systemSettings().setValue(QStringLiteral("/own/a"), 2);
    const PluginInterface *plugin = core.plugin();
    QCOMPARE(plugin->appParameter(QStringLiteral("/own/a"), QVariant()), QVariant(1));
    QCOMPARE(plugin->sysParameter(QStringLiteral("/own/a"), QVariant()), QVariant(2));
    QCOMPARE(plugin->appParameter(QStringLiteral("/own/b"), 9), QVariant(9));
    QVERIFY(!plugin->sysParameter(QStringLiteral("/own/b"), QVariant()).isValid());
    QCOMPARE(plugin->appParameterGroup(QStringLiteral("own")).keys(),
             QStringList{QStringLiteral("a")});
    QVERIFY(plugin->sysParameterGroup(QStringLiteral("sound")).contains(QStringLiteral("volume")));
}

void RobotCoreTest::givesTheMailAccount()
{
    const RobotCore core;
    const QStringList expected{QStringLiteral("host"),     QStringLiteral("login"),
                               QStringLiteral("password"), QStringLiteral("port"),
                               QStringLiteral("sender"),   QStringLiteral("sequrity")};
    QCOMPARE(core.plugin()->emailParameters().keys(), expected);
    core.plugin()->setEmailParameters({});
    QVERIFY(core.plugin()->emailParameters().isEmpty());
}

void RobotCoreTest::keepsSettingsInItsFolder()
{
    QTemporaryDir folder;
    RobotCore::Equipment equipment;
    equipment.settingsFolder = folder.filePath(QStringLiteral("etc"));
    {
        const RobotCore core(equipment);
        QVERIFY(core.problems().isEmpty());
        core.plugin()->applicationSettings().setValue(QStringLiteral("/own/a"), 1);
        core.plugin()->systemSettings().setValue(QStringLiteral("/sound/volume"), 33);
        core.plugin()->setEmailParameters({{QStringLiteral("host"), QStringLiteral("localhost")}});
    }
    const RobotCore core(equipment);
    QCOMPARE(core.plugin()->appParameter(QStringLiteral("/own/a"), {}), QVariant(1));
    QCOMPARE(core.plugin()->sysParameter(QStringLiteral("/sound/volume"), {}), QVariant(33));
    QCOMPARE(core.plugin()->emailParameters(),
             (QVariantMap{{QStringLiteral("host"), QStringLiteral("localhost")}}));

    equipment.settingsFolder = QStringLiteral("/dev/null");
    const RobotCore homeless(equipment);
    QCOMPARE(homeless.problems().size(), 3);
    QVERIFY(homeless.plugin()->sysParameterGroup(QStringLiteral("sound")).size() > 1);
}

void RobotCoreTest::passesRequestsToItsParts()
{
    const RobotCore core;
    PluginInterface *plugin = core.plugin();

    Q_EMIT plugin->signalTTSStart(QStringLiteral("Hello"), true, true, ID(), Replica::Plain);
    QCOMPARE(core.speech()->text(), QStringLiteral("Hello"));
    Q_EMIT plugin->signalTTSCancel();
    QVERIFY(!core.speech()->isSpeaking());

    const ID anchor(3, QUuid::createUuid());
    Q_EMIT plugin->signalAnswersAnchor(anchor);
    QCOMPARE(core.dialog()->anchor(), anchor);

    Q_EMIT plugin->signalLanguage(QStringLiteral("de"));
    QCOMPARE(core.language()->code(), QStringLiteral("de"));
    Q_EMIT plugin->signalLanguage(QString());
    QCOMPARE(core.language()->code(), QStringLiteral("de"));

    Q_EMIT plugin->signalOperatorCall(true);
    QVERIFY(core.operatorDesk()->isCalled());

    Q_EMIT plugin->signalFaceTrackingAuto(false);
    Q_EMIT plugin->signalFaceTracking(12);
    Q_EMIT plugin->signalHeadEnable(false);
    QVERIFY(!core.faces()->isTrackingAuto());
    QCOMPARE(core.faces()->tracked(), 12LL);
    QVERIFY(!core.faces()->isHeadEnabled());
    int trainingSteps = 0;
    connect(core.faces(), &simulator::SimulatedFaces::trainStatusChanged, this,
            [&trainingSteps] { ++trainingSteps; });
    Q_EMIT plugin->signalFaceAdd(5);
    QCOMPARE(trainingSteps, 1);
    Q_EMIT plugin->signalFaceDelete(5);

    Q_EMIT plugin->signalDrivePoint(4);
    QCOMPARE(core.drive()->status(), MovementStatusMoving);
    Q_EMIT plugin->signalDrivePause(true);
    QCOMPARE(core.drive()->status(), MovementStatusPaused);
    Q_EMIT plugin->signalDriveMode(DriveModeFollow);
    QCOMPARE(core.drive()->mode(), DriveModeFollow);
    Q_EMIT plugin->signalDriveCharger(true);
    QCOMPARE(core.drive()->chargerStatus(), ChargerMovementStatusApproaching);
}

void RobotCoreTest::answersRequestsThatReturnAValue()
{
    const RobotCore core;
    PluginInterface *plugin = core.plugin();
    const QVariant category = QVariant::fromValue(DatabaseDefaults::defaultCategory());

    const auto greeting =
        Q_EMIT plugin->signalGetReplica(Replica::Greeting, category, true, true, FaceInfo());
    QVERIFY(greeting);
    QCOMPARE(greeting->type(), Replica::Greeting);
    const auto named = [plugin, &category](const QString &name) {
        return Q_EMIT plugin->signalGetAppReplica(name, category, true, true, FaceInfo());
    };
    QVERIFY(named(QStringLiteral("help")));
    QVERIFY(!named(QStringLiteral("none")));

    const QStringList result = Q_EMIT plugin->signalScriptStart(QStringLiteral("tour"));
    QCOMPARE(result, (QStringList{QStringLiteral("started"), QStringLiteral("tour")}));
    Q_EMIT plugin->signalScriptCancel();
    QVERIFY(core.scripts()->running().isEmpty());
}

void RobotCoreTest::keyboardShowsAndHides()
{
    const RobotCore core;
    const auto keyboard = core.plugin()->keyboard();
    QSignalSpy visible(core.devices().keyboard.data(),
                       &simulator::SimulatedKeyboard::visibleChanged);
    keyboard->show();
    keyboard->show();
    QVERIFY(keyboard->isVisible());
    keyboard->hide();
    QVERIFY(!keyboard->isVisible());
    QCOMPARE(visible.count(), 2);
    keyboard->setLocale(QStringLiteral("de_DE"));
    QCOMPARE(keyboard->locale(), QStringLiteral("de_DE"));
}

void RobotCoreTest::tellsWhoItIs()
{
    QVERIFY(!RobotInfo::uuidRobot().isNull());
    QVERIFY(!RobotInfo::uuidOwner().isNull());
    QVERIFY(RobotInfo::uuidRobot() != RobotInfo::uuidOwner());
    QVERIFY(RobotInfo::dateOfCreation().isValid());
    const QString before = RobotInfo::name();
    simulator::RobotIdentity::instance().name = QStringLiteral("Test");
    QCOMPARE(RobotInfo::name(), QStringLiteral("Test"));
    simulator::RobotIdentity::instance().name = before;
    QVERIFY(!DatabaseDefaults::defaultCategory().uuid().isNull());
}

void RobotCoreTest::keepsPeopleInItsDataFolder()
{
    const QTemporaryDir folder;
    RobotCore::Equipment equipment;
    equipment.dataFolder = folder.filePath(QStringLiteral("robot"));
    UserData user;
    {
        const RobotCore core(equipment);
        QVERIFY(!core.devices().users->isInMemory());
        QVERIFY(core.plugin()->databaseUsers()->user(1, user));
        QVERIFY(core.plugin()->databaseUsers()->deleteUser(1, FaceInfo::User));
    }
    // Who was deleted does not come back.
    const RobotCore core(equipment);
    QVERIFY(!core.plugin()->databaseUsers()->user(1, user));
    QVERIFY(RobotCore().plugin()->databaseUsers()->user(1, user)); // in memory
}

void RobotCoreTest::devicesOutliveTheCore()
{
    QSharedPointer<IPrinter> printer;
    {
        const RobotCore core;
        printer = core.plugin()->printer(Device::Printer);
    }
    QVERIFY(printer->isConnected());
}

QTEST_GUILESS_MAIN(RobotCoreTest)

#include "tst_robotcore.moc"
