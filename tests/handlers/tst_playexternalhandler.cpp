#include "panorel/handlers/PlayExternalHandler.h"

#include "tests/support/PageRequest.h"
#include "tests/support/SoundFile.h"
#include "tests/support/SoundTestCase.h"

#include <QMediaPlayer>
#include <QPointer>
#include <QTemporaryDir>

using panorel::Message;
using panorel::PlayExternalHandler;

namespace {

constexpr int timeoutMs = 20000;
const QString statusTopic = QStringLiteral("system.play.status");

QVariantMap statusNamed(const char *name)
{
    return {{QStringLiteral("status"), QString::fromLatin1(name)}};
}

} // namespace

class PlayExternalHandlerTest : public SoundTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        SoundTestCase::setUp();
        create();
    }

    void create()
    {
        watch(statusTopic);
        auto *handler = new PlayExternalHandler(brocker());
        m_player = handler->findChild<QMediaPlayer *>();
        subscribe(handler, QStringLiteral("system.play.external"));
    }
    void ask(const QByteArray &json)
    {
        log().skipDebug(); // of statuses that came before
        request(fromPage(json), QStringLiteral("PlayExternalHandler"));
    }
    /// A sound file; @p name may hold any characters.
    QString soundFile(const char *name, int milliseconds)
    {
        QString path = m_folder.filePath(QString::fromUtf8(name));
        writeWaveFile(path, tone(440, milliseconds));
        return path;
    }
    void play(const QString &path, const QByteArray &more = QByteArray())
    {
        ask("{\"url\": \"" + QUrl::fromLocalFile(path).toEncoded() + "\"" + more + "}");
    }
    void compareStatuses(const QList<const char *> &names)
    {
        QTRY_COMPARE_WITH_TIMEOUT(replies().count(), names.size(), timeoutMs);
        for (const char *name : names)
            QCOMPARE(replies().take().attributes(), statusNamed(name));
    }

    QTemporaryDir m_folder;
    QPointer<QMediaPlayer> m_player;

private Q_SLOTS:
    void ownsItsPlayer();
    void playsAFileToItsEnd();
    void playsAtTheAskedVolume_data();
    void playsAtTheAskedVolume();
    void setsTheVolumeOnlyWithNewMedia();
    void stops_data();
    void stops();
    void playsAndStopsAtOnce();
    void doesNothingWithoutACommand();
    void stopsNothingWhenIdle();
    void replacesWhatPlays();
    void playsAnAddressWithASpace();
    void tellsAnError_data();
    void tellsAnError();
    void playsAfterAnError();
    void playsNothingFromAnEmptyAddress_data();
    void playsNothingFromAnEmptyAddress();
    void registersThePlayersTypes();
    void tellsNothingOfAPause();
    void mayBeClearedFromItsOwnSignal_data();
    void mayBeClearedFromItsOwnSignal();
    void mayBeClearedWhilePlaying();
    void staysSilentOnceCleared();
};

void PlayExternalHandlerTest::ownsItsPlayer()
{
    QVERIFY(m_player);
    QVERIFY(qobject_cast<PlayExternalHandler *>(m_player->parent()));
    brocker()->clear();
    QVERIFY(!m_player);
}

void PlayExternalHandlerTest::playsAFileToItsEnd()
{
    play(soundFile("short.wav", 300));
    compareStatuses({"PlayingState", "EndOfMedia", "StoppedState"});
    QCOMPARE(m_player->volume(), 60);
}

void PlayExternalHandlerTest::playsAtTheAskedVolume_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("volume");
    QTest::newRow("number") << QByteArray("35") << 35;
    QTest::newRow("silent") << QByteArray("0") << 0;
    QTest::newRow("text") << QByteArray("\"35\"") << 35;
    QTest::newRow("no number") << QByteArray("\"loud\"") << 0;
    QTest::newRow("null") << QByteArray("null") << 0;
    QTest::newRow("object") << QByteArray("{}") << 0;
    QTest::newRow("too much") << QByteArray("1000") << 100;
    QTest::newRow("too little") << QByteArray("-5") << 0;
}

void PlayExternalHandlerTest::playsAtTheAskedVolume()
{
    QFETCH(QByteArray, value);
    QFETCH(int, volume);
    play(soundFile("long.wav", 5000), ", \"volume\": " + value);
    QCOMPARE(m_player->volume(), volume);
    replies().clear();
}

void PlayExternalHandlerTest::setsTheVolumeOnlyWithNewMedia()
{
    play(soundFile("long.wav", 5000), ", \"volume\": 35");
    ask(R"({"volume": 90})");
    QCOMPARE(m_player->volume(), 35);
    play(soundFile("long.wav", 5000));
    QCOMPARE(m_player->volume(), 60); // the default, not the one before
    replies().clear();
}

void PlayExternalHandlerTest::stops_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char *value : {"true", "false", "null"}) // presence counts
        QTest::newRow(value) << QByteArray(value);
}

void PlayExternalHandlerTest::stops()
{
    QFETCH(QByteArray, value);
    play(soundFile("long.wav", 5000));
    compareStatuses({"PlayingState"});
    ask("{\"stop\": " + value + "}");
    compareStatuses({"StoppedState"});
    QCOMPARE(m_player->state(), QMediaPlayer::StoppedState);
}

void PlayExternalHandlerTest::playsAndStopsAtOnce()
{
    play(soundFile("long.wav", 5000), ", \"stop\": true");
    compareStatuses({"PlayingState", "StoppedState"});
    QCOMPARE(m_player->state(), QMediaPlayer::StoppedState);
}

void PlayExternalHandlerTest::doesNothingWithoutACommand()
{
    makesUpAttributes({"file"});
    ask("{}");
    ask(R"({"volume": 10, "file": "/x.wav"})");
    QVERIFY(m_player->media().isNull());
}

void PlayExternalHandlerTest::stopsNothingWhenIdle() { ask(R"({"stop": true})"); }

void PlayExternalHandlerTest::replacesWhatPlays()
{
    play(soundFile("long.wav", 20000));
    compareStatuses({"PlayingState"});
    const QString second = soundFile("second.wav", 300);
    play(second);
    QCOMPARE(m_player->media().request().url(), QUrl::fromLocalFile(second));
    QTRY_VERIFY_WITH_TIMEOUT(replies().topics().size() >= 2
                                 && m_player->mediaStatus() == QMediaPlayer::EndOfMedia
                                 && m_player->state() == QMediaPlayer::StoppedState,
                             timeoutMs);
    QVariantMap last;
    while (!replies().isEmpty())
        last = replies().take().attributes();
    QCOMPARE(last, statusNamed("StoppedState"));
}

void PlayExternalHandlerTest::playsAnAddressWithASpace()
{
    ask("{\"url\": \"file://" + soundFile("with space.wav", 300).toUtf8() + "\"}");
    compareStatuses({"PlayingState", "EndOfMedia", "StoppedState"});
}

void PlayExternalHandlerTest::tellsAnError_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_folder.filePath(QStringLiteral("missing.wav"));
    const QString broken = m_folder.filePath(QStringLiteral("broken.wav"));
    QFile file(broken);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    QTest::newRow("no sound") << broken;
}

void PlayExternalHandlerTest::tellsAnError()
{
    QFETCH(QString, path);
    log().skipDebug();
    play(path);
    QVariantMap error;
    QTRY_VERIFY_WITH_TIMEOUT(!replies().isEmpty(), timeoutMs);
    while (error.value(QStringLiteral("status")) != QLatin1String("error")) {
        QTRY_VERIFY_WITH_TIMEOUT(!replies().isEmpty(), timeoutMs);
        error = replies().take().attributes();
    }
    QCOMPARE(error.size(), 3);
    QCOMPARE(error.value(QStringLiteral("error")).userType(), int(QMetaType::Int));
    QCOMPARE(error.value(QStringLiteral("error")).toInt(), int(m_player->error()));
    const QString description = error.value(QStringLiteral("error_description")).toString();
    QVERIFY(!description.isEmpty());
    // The log names the error as the player does.
    const QString line =
        QStringLiteral("QMediaPlayer::ResourceError \"") + description + QLatin1Char('"');
    const QStringList lines = log().takeTexts(QStringLiteral("panorel"));
    QVERIFY2(lines.contains(line), qPrintable(lines.join(QLatin1Char('\n'))));
    replies().clear();
}

void PlayExternalHandlerTest::playsAfterAnError()
{
    play(m_folder.filePath(QStringLiteral("missing.wav")));
    QTRY_VERIFY_WITH_TIMEOUT(m_player->error() != QMediaPlayer::NoError, timeoutMs);
    turnEventLoop();
    replies().clear();
    log().take(); // GStreamer warns, too
    play(soundFile("short.wav", 300));
    compareStatuses({"PlayingState", "EndOfMedia", "StoppedState"});
}

void PlayExternalHandlerTest::playsNothingFromAnEmptyAddress_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {R"({"url": ""})", R"({"url": null})", R"({"url": []})"})
        QTest::newRow(json) << QByteArray(json);
}

void PlayExternalHandlerTest::playsNothingFromAnEmptyAddress()
{
    QFETCH(QByteArray, json);
    ask(json);
    turnEventLoop();
    QVERIFY(m_player->state() != QMediaPlayer::PlayingState);
    replies().clear();
}

void PlayExternalHandlerTest::registersThePlayersTypes()
{
    for (const char *type :
         {"QMediaPlayer::State", "QMediaPlayer::MediaStatus", "QMediaPlayer::Error"})
        QVERIFY2(QMetaType::type(type) != QMetaType::UnknownType, type);
}

void PlayExternalHandlerTest::tellsNothingOfAPause()
{
    play(soundFile("long.wav", 5000));
    compareStatuses({"PlayingState"});
    m_player->pause();
    QTRY_COMPARE(m_player->state(), QMediaPlayer::PausedState);
    turnEventLoop();
    QVERIFY(replies().isEmpty());
    ask(R"({"stop": true})");
    compareStatuses({"StoppedState"});
}

void PlayExternalHandlerTest::mayBeClearedFromItsOwnSignal_data()
{
    QTest::addColumn<QString>("status");
    // The first comes during the request, the others from the event loop.
    for (const char *status : {"PlayingState", "EndOfMedia", "StoppedState", "error"})
        QTest::newRow(status) << QString::fromLatin1(status);
}

void PlayExternalHandlerTest::mayBeClearedFromItsOwnSignal()
{
    QFETCH(QString, status);
    const QPointer<QMediaPlayer> player = m_player;
    bool cleared = false;
    brocker()->subscribe(statusTopic, [this, &status, &cleared](const Message &message) {
        if (message.attributes().value(QStringLiteral("status")) != status)
            return;
        QVERIFY(!cleared); // silent from here on
        cleared = true;
        brocker()->clear();
    });
    log().skipDebug();
    play(status == QLatin1String("error") ? m_folder.filePath(QStringLiteral("missing.wav"))
                                          : soundFile("short.wav", 300));
    QTRY_VERIFY_WITH_TIMEOUT(cleared, timeoutMs);
    turnEventLoop();
    QVERIFY(!player);
    replies().clear();
}

void PlayExternalHandlerTest::mayBeClearedWhilePlaying()
{
    play(soundFile("long.wav", 20000));
    compareStatuses({"PlayingState"});
    QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > 0, timeoutMs);
    brocker()->clear();
    QVERIFY(!m_player);
}

void PlayExternalHandlerTest::staysSilentOnceCleared()
{
    const QPointer<QMediaPlayer> former = m_player;
    play(soundFile("long.wav", 20000));
    compareStatuses({"PlayingState"});
    const QString host = QStringLiteral("cookie.set");
    brocker()->subscribe(host, [this, &former](const Message &) {
        brocker()->clear();
        create();
        QVERIFY(former); // in a delivery it lives on, beside its successor
        former->stop();
    });
    brocker()->publish(Message(host));
    turnEventLoop();
    QVERIFY(!former);
    QVERIFY(replies().isEmpty());
}

QTEST_GUILESS_MAIN(PlayExternalHandlerTest)
#include "tst_playexternalhandler.moc"
