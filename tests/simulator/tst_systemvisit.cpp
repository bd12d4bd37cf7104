#include "panorel/Constants.h"
#include "simulator/core/Mixer.h"
#include "simulator/core/RobotIdentity.h"
#include "simulator/core/SettingsStore.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedPlugin.h"
#include "tests/simulator/VisitTestCase.h"

#include <QFile>

using namespace simulator;
namespace topics = panorel::constants;

/// The sample page with the robot's drive, sound, settings and identity.
class SystemVisitTest : public VisitTestCase
{
    Q_OBJECT

private:
    void openPart(const QString &name)
    {
        touch(QStringLiteral("#tab-system"));
        touch(QStringLiteral("#tab-") + name);
    }
    QString newsOfPlaying() { return news(QStringLiteral("play")); }
    void tellOfPlaying(const QString &status)
    {
        publish(topics::PLAY_STATUS, {{QStringLiteral("status"), status}});
    }

private Q_SLOTS:
    void theRobotDrivesToAPoint();
    void aPointIsANumber();
    void theDriveModeIsChosen();
    void theRobotGoesToItsCharger();
    void theVolumesAreThoseOfTheMixer();
    void theChimeIsAskedFor();
    void whatBecomesOfASoundIsTold();
    void aRecordingIsMadeAndOffered();
    void aGroupOfSettingsIsRead();
    void oneSettingIsRead();
    void settingsThatChangeAreReadAgain();
    void theRobotTellsWhoItIs();
};

void SystemVisitTest::theRobotDrivesToAPoint()
{
    SimulatedDrive *drive = core()->drive();
    touch(QStringLiteral("#tab-robot"));
    type(QStringLiteral("drive-point"), QStringLiteral("65530"));
    touch(QStringLiteral("#drive-more"));
    touch(QStringLiteral("#drive-more"));
    touch(QStringLiteral("#drive-less"));
    core()->pace().setSpeed(1);
    touch(QStringLiteral("#drive-go"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-status")), QStringLiteral("Drives"),
                              timeoutMs);
    QCOMPARE(int(drive->point()), 65531);
    QCOMPARE(textOf(QStringLiteral("drive-state")), QStringLiteral("Sent to point 65531."));
    touch(QStringLiteral("#drive-pause"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-status")), QStringLiteral("Paused"),
                              timeoutMs);
    touch(QStringLiteral("#drive-resume"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-status")), QStringLiteral("Drives"),
                              timeoutMs);
    drive->block();
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-status")), QStringLiteral("Blocked"),
                              timeoutMs);
    core()->pace().setSpeed(20);
    touch(QStringLiteral("#drive-go"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-status")), QStringLiteral("Arrived"),
                              timeoutMs);
}

void SystemVisitTest::aPointIsANumber()
{
    touch(QStringLiteral("#tab-robot"));
    for (const char *point : {"65536", "-1", "1.5", ""}) {
        touch(QStringLiteral("#drive-point"));
        type(QStringLiteral("drive-point"), QLatin1String(point));
        evaluate(QStringLiteral("document.getElementById('drive-state').textContent = ''; null"));
        touch(QStringLiteral("#drive-go"));
        QVERIFY2(shows(QStringLiteral("drive-state"), QStringLiteral("from 0 to 65535")), point);
    }
    QCOMPARE(count(topics::DRIVE_CONTROL), 0);
}

void SystemVisitTest::theDriveModeIsChosen()
{
    touch(QStringLiteral("#tab-robot"));
    const QStringList names{QStringLiteral("Manual"), QStringLiteral("Automatic"),
                            QStringLiteral("Follow"), QStringLiteral("Off")};
    for (int mode = 3; mode >= 0; --mode) {
        touch(QStringLiteral("[data-mode=\"%1\"]").arg(mode));
        QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-mode")), names.at(mode), timeoutMs);
        QCOMPARE(int(core()->drive()->mode()), mode);
        QCOMPARE(evaluate(QStringLiteral("document.querySelector('[data-mode][aria-pressed=true]')"
                                         ".dataset.mode"))
                     .toInt(),
                 mode);
    }
}

void SystemVisitTest::theRobotGoesToItsCharger()
{
    touch(QStringLiteral("#tab-robot"));
    touch(QStringLiteral("#charger-go"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-charge")), QStringLiteral("Charging"),
                              timeoutMs);
    touch(QStringLiteral("#charger-leave"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("drive-charge")), QStringLiteral("Away"),
                              timeoutMs);
}

void SystemVisitTest::theVolumesAreThoseOfTheMixer()
{
    Mixer &mixer = Mixer::instance();
    mixer.setSoundVolume(33);
    mixer.setMicrophoneLevel(44);
    open({}); // the page reads both when it connects
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("volume-sound-value")), QStringLiteral("33"),
                              timeoutMs);
    QCOMPARE(textOf(QStringLiteral("volume-mic-value")), QStringLiteral("44"));

    openPart(QStringLiteral("sound"));
    type(QStringLiteral("volume-sound"), QStringLiteral("81"));
    type(QStringLiteral("volume-mic"), QStringLiteral("12"));
    QTRY_COMPARE_WITH_TIMEOUT(mixer.microphoneLevel(), 12, timeoutMs);
    QCOMPARE(mixer.soundVolume(), 81);

    // What changed elsewhere shows when the view comes back into sight.
    mixer.setSoundVolume(50);
    mixer.setMicrophoneLevel(70);
    touch(QStringLiteral("#tab-talk"));
    touch(QStringLiteral("#tab-system"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("volume-sound-value")), QStringLiteral("50"),
                              timeoutMs);
    QCOMPARE(evaluate(QStringLiteral("document.getElementById('volume-mic').value")).toString(),
             QStringLiteral("70"));
}

void SystemVisitTest::theChimeIsAskedFor()
{
    openPart(QStringLiteral("sound"));
    type(QStringLiteral("play-volume"), QStringLiteral("5"));
    touch(QStringLiteral("#play-chime"));
    QTRY_COMPARE_WITH_TIMEOUT(count(topics::PLAY_EXTERNAL), 1, timeoutMs);
    const QVariantMap request = published(topics::PLAY_EXTERNAL);
    const QUrl url(request.value(QStringLiteral("url")).toString());
    QCOMPARE(url, QUrl::fromLocalFile(QStringLiteral(PANOREL_SAMPLE_PAGE "/chime.wav")));
    QVERIFY(QFile::exists(url.toLocalFile()));
    QCOMPARE(request.value(QStringLiteral("volume")).toInt(), 5);
    touch(QStringLiteral("#play-stop"));
    QTRY_VERIFY_WITH_TIMEOUT(published(topics::PLAY_EXTERNAL).contains(QStringLiteral("stop")),
                             timeoutMs);
}

void SystemVisitTest::whatBecomesOfASoundIsTold()
{
    openPart(QStringLiteral("sound"));
    tellOfPlaying(QStringLiteral("PlayingState"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPlaying(), QStringLiteral("Playing…"), timeoutMs);
    tellOfPlaying(QStringLiteral("EndOfMedia"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPlaying(), QStringLiteral("Played to the end."), timeoutMs);
    tellOfPlaying(QStringLiteral("StoppedState"));
    QTRY_COMPARE_WITH_TIMEOUT(newsOfPlaying(), QStringLiteral("Stopped."), timeoutMs);
    publish(topics::PLAY_STATUS,
            {{QStringLiteral("status"), QStringLiteral("error")},
             {QStringLiteral("error"), 1},
             {QStringLiteral("error_description"), QStringLiteral("No such file")}});
    QTRY_COMPARE_WITH_TIMEOUT(
        newsOfPlaying(), QStringLiteral("It cannot be played (error 1): No such file"), timeoutMs);
}

void SystemVisitTest::aRecordingIsMadeAndOffered()
{
    openPart(QStringLiteral("sound"));
    touch(QStringLiteral("input[name=record-length][value=\"5\"]+span"));
    touch(QStringLiteral("#record-start"));
    QTRY_COMPARE_WITH_TIMEOUT(count(topics::RECORD_AUDIO_REQUEST), 1, timeoutMs);
    QCOMPARE(published(topics::RECORD_AUDIO_REQUEST).value(QStringLiteral("timeout")).toInt(), 5);
    QVERIFY(shows(QStringLiteral("record-news"), QStringLiteral("at most 5 seconds")));
    touch(QStringLiteral("#record-stop"));
    QTRY_VERIFY_WITH_TIMEOUT(count(topics::RECORD_AUDIO_RESPONSE) == 1, timeoutMs);
    const QString file =
        published(topics::RECORD_AUDIO_RESPONSE).value(QStringLiteral("file")).toString();
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("record-file")),
                              QStringLiteral("File: ") + file, timeoutMs);
    QCOMPARE(news(QStringLiteral("record")), QStringLiteral("The recording is ready."));

    // It is played by its address, whatever stands in its name.
    publish(topics::RECORD_AUDIO_RESPONSE,
            {{QStringLiteral("file"), QStringLiteral("/nowhere/a b%41#?.wav")}});
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("record-file"), QStringLiteral("/nowhere/")),
                             timeoutMs);
    touch(QStringLiteral("#play-recording"));
    QTRY_COMPARE_WITH_TIMEOUT(count(topics::PLAY_EXTERNAL), 1, timeoutMs);
    QCOMPARE(QUrl(published(topics::PLAY_EXTERNAL).value(QStringLiteral("url")).toString())
                 .toLocalFile(),
             QStringLiteral("/nowhere/a b%41#?.wav"));
    QFile::remove(file);
}

void SystemVisitTest::aGroupOfSettingsIsRead()
{
    openPart(QStringLiteral("settings"));
    touch(QStringLiteral("[data-group=badge]"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("settings-fields")),
                              QStringLiteral("enabledyestemplatevisitor"), timeoutMs);
    QCOMPARE(textOf(QStringLiteral("settings-state")), QStringLiteral("2 settings"));
    type(QStringLiteral("settings-group"), QStringLiteral("nothing"));
    touch(QStringLiteral("#settings-read"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("settings-state")),
                              QStringLiteral("Nothing found under this name."), timeoutMs);
    QCOMPARE(textOf(QStringLiteral("settings-fields")), QString());
    type(QStringLiteral("settings-group"), QString());
    touch(QStringLiteral("#settings-read"));
    QVERIFY(shows(QStringLiteral("settings-state"), QStringLiteral("Which group?")));
}

void SystemVisitTest::oneSettingIsRead()
{
    openPart(QStringLiteral("settings"));
    touch(QStringLiteral("input[name=settings-store][value=system]+span"));
    type(QStringLiteral("settings-group"), QStringLiteral("sound"));
    type(QStringLiteral("settings-name"), QStringLiteral("volume"));
    touch(QStringLiteral("#settings-read"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("settings-fields")), QStringLiteral("volume50"),
                              timeoutMs);
    QCOMPARE(textOf(QStringLiteral("settings-state")), QStringLiteral("1 setting"));
}

void SystemVisitTest::settingsThatChangeAreReadAgain()
{
    openPart(QStringLiteral("settings"));
    publish(topics::SETTINGS_UPDATE);
    QTRY_VERIFY_WITH_TIMEOUT(
        shows(QStringLiteral("settings-state"), QStringLiteral("have changed")), timeoutMs);
    touch(QStringLiteral("[data-group=screen]"));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("settings-fields"), QStringLiteral("light")),
                             timeoutMs);
    core()->plugin()->applicationSettings().setValue(QStringLiteral("/screen/theme"),
                                                     QStringLiteral("dark"));
    publish(topics::SETTINGS_UPDATE);
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("settings-fields"), QStringLiteral("dark")),
                             timeoutMs);
}

void SystemVisitTest::theRobotTellsWhoItIs()
{
    openPart(QStringLiteral("about"));
    QTRY_COMPARE_WITH_TIMEOUT(textOf(QStringLiteral("environment-name")),
                              RobotIdentity::instance().name, timeoutMs);
    QCOMPARE(textOf(QStringLiteral("environment-uuid_robot")),
             RobotIdentity::instance().robot.toString());
    QCOMPARE(textOf(QStringLiteral("environment-uuid_owner")),
             RobotIdentity::instance().owner.toString());
    QVERIFY(shows(QStringLiteral("environment-date_of_creation"), QStringLiteral("2019")));
    const QString host = textOf(QStringLiteral("environment-id"));
    QVERIFY(!host.isEmpty() && host == host.trimmed());
    touch(QStringLiteral("#environment-read"));
    QTRY_COMPARE_WITH_TIMEOUT(count(topics::GET_ENVIRONMENT), 2, timeoutMs);
}

QTEST_MAIN(SystemVisitTest)
#include "tst_systemvisit.moc"
