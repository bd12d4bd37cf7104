#include "panorel/handlers/RecordAudioHandler.h"

#include "tests/support/PageRequest.h"
#include "tests/support/SoundFile.h"
#include "tests/support/SoundTestCase.h"

#include <QAudioRecorder>
#include <QMediaPlayer>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <limits>

using panorel::Message;
using panorel::RecordAudioHandler;

namespace {

constexpr int timeoutMs = 20000;
const QString response = QStringLiteral("record.audio.response");
constexpr int mostMs = std::numeric_limits<int>::max();

} // namespace

class RecordAudioHandlerTest : public SoundTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        SoundTestCase::setUp();
        create();
    }
    void tearDown() override
    {
        SoundTestCase::tearDown();
        for (const QString &file : qAsConst(m_files))
            QFile::remove(file);
    }

    void create()
    {
        watch(response);
        auto *handler = new RecordAudioHandler(brocker());
        m_recorder = handler->findChild<QAudioRecorder *>();
        m_timer = handler->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        subscribe(handler, QStringLiteral("record.audio.request"));
    }
    void ask(const QByteArray &json)
    {
        request(fromPage(json), QStringLiteral("RecordAudioHandler"));
        rememberFile();
    }
    void rememberFile()
    {
        const QString file = m_recorder->outputLocation().toLocalFile();
        if (!file.isEmpty() && !m_files.contains(file))
            m_files.append(file);
    }
    /// The path in the one reply.
    QString takeFile()
    {
        if (replies().count() != 1) {
            QTest::qFail("there is not one reply", __FILE__, __LINE__);
            return {};
        }
        log().skipDebug();
        const Message reply = replies().take();
        if (reply.attributes().keys() != QStringList({QStringLiteral("file")}))
            QTest::qFail("the reply holds other attributes", __FILE__, __LINE__);
        return reply.attributes().value(QStringLiteral("file")).toString();
    }

    /// Waits until the running recording holds so much sound.
    void waitForSound(int milliseconds)
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_recorder->status(), QMediaRecorder::RecordingStatus, timeoutMs);
        const qint64 begin = m_recorder->duration();
        QTRY_VERIFY_WITH_TIMEOUT(m_recorder->duration() > begin + milliseconds, timeoutMs);
    }
    void compareHasSound(const QString &file)
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_recorder->status(), QMediaRecorder::LoadedStatus, timeoutMs);
        const int samples = readSoundFile(file).size();
        QVERIFY2(samples > soundSampleRate / 4, qPrintable(file + QString::number(samples)));
    }

    QPointer<QAudioRecorder> m_recorder;
    QPointer<QTimer> m_timer;
    QStringList m_files;

private Q_SLOTS:
    void writesItsFormats();
    void encodesFlacInHighQuality();
    void recordsTwentySecondsByDefault();
    void readsTheTimeout_data();
    void readsTheTimeout();
    void repliesWhenTheTimeIsOver();
    void repliesOnceWhenStopped();
    void stopsAtOnceInTheSameRequest();
    void repliesToAStopWithoutARecording();
    void repliesAgainWithTheLastFile();
    void namesTheFileByTheTime();
    void startsAnewWhileRecording();
    void startsAgainAtOnceAfterAStop();
    void forgetsAStartThatWaits_data();
    void forgetsAStartThatWaits();
    void hasStoppedWhenItReplies();
    void repliesWhenNothingCouldBeRecorded();
    void doesNothingWithoutACommand();
    void recordsWhatIsPlayed();
    void endsWithTheHandler();
    void mayBeClearedFromItsOwnReply();
    void staysSilentOnceCleared();
};

void RecordAudioHandlerTest::writesItsFormats()
{
    log().take();
    brocker()->clear();
    log().take();
    new RecordAudioHandler(brocker()); // not subscribed, so its line stands alone
    const QVector<LogLine> lines = log().take();
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().type, QtDebugMsg);
    QCOMPARE(lines.first().category, QStringLiteral("panorel"));
    QVERIFY2(lines.first().text.startsWith(QLatin1String("FORMATS (\"")),
             qPrintable(lines.first().text));
    QVERIFY(lines.first().text.contains(QLatin1String("\"audio/x-flac\"")));
}

void RecordAudioHandlerTest::encodesFlacInHighQuality()
{
    QCOMPARE(m_recorder->audioSettings().codec(), QStringLiteral("audio/x-flac"));
    QCOMPARE(m_recorder->audioSettings().quality(), QMultimedia::HighQuality);
    QVERIFY(m_recorder->videoSettings().isNull());
    QCOMPARE(m_recorder->containerFormat(), QString());
}

void RecordAudioHandlerTest::recordsTwentySecondsByDefault()
{
    ask(R"({"start": null})"); // presence counts
    QVERIFY(m_timer->isActive());
    QVERIFY(m_timer->isSingleShot());
    QCOMPARE(m_timer->interval(), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(m_recorder->state(), QMediaRecorder::RecordingState, timeoutMs);
    QVERIFY(replies().isEmpty());
}

void RecordAudioHandlerTest::readsTheTimeout_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("seconds") << QByteArray("5") << 5000;
    QTest::newRow("text") << QByteArray("\"5\"") << 5000;
    QTest::newRow("fraction") << QByteArray("2.4") << 2000;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("no number") << QByteArray("\"long\"") << 0;
    QTest::newRow("null") << QByteArray("null") << 0;
    QTest::newRow("object") << QByteArray("{}") << 0;
    QTest::newRow("negative") << QByteArray("-5") << 0;
    QTest::newRow("largest") << QByteArray("2147483") << 2147483000;
    QTest::newRow("a fraction too large") << QByteArray("2147483.6") << mostMs;
    QTest::newRow("just too large") << QByteArray("2147484") << mostMs;
    QTest::newRow("beyond 32 bits") << QByteArray("4294967297") << mostMs;
    QTest::newRow("beyond 53 bits") << QByteArray("9e18") << mostMs;
    QTest::newRow("beyond 64 bits") << QByteArray("1e19") << mostMs;
    QTest::newRow("far beyond") << QByteArray("1e300") << mostMs;
    QTest::newRow("text of many digits") << QByteArray("\"99999999999999999999\"") << mostMs;
    QTest::newRow("far below") << QByteArray("-9e18") << 0;
    QTest::newRow("below 64 bits") << QByteArray("-1e300") << 0;
}

void RecordAudioHandlerTest::readsTheTimeout()
{
    QFETCH(QByteArray, value);
    QFETCH(int, milliseconds);
    ask("{\"start\": true, \"timeout\": " + value + "}");
    QVERIFY(m_timer->isActive());
    QCOMPARE(m_timer->interval(), milliseconds);
    brocker()->clear();
}

void RecordAudioHandlerTest::repliesWhenTheTimeIsOver()
{
    ask(R"({"start": true, "timeout": 1})");
    QVERIFY(replies().isEmpty());
    const QString file = m_recorder->outputLocation().toLocalFile();
    QTRY_COMPARE_WITH_TIMEOUT(replies().count(), 1, timeoutMs);
    QCOMPARE(takeFile(), file);
    QTRY_COMPARE_WITH_TIMEOUT(m_recorder->state(), QMediaRecorder::StoppedState, timeoutMs);
    QVERIFY(!m_timer->isActive());
}

void RecordAudioHandlerTest::repliesOnceWhenStopped()
{
    ask(R"({"start": true, "timeout": 1})");
    ask(R"({"stop": false})"); // presence counts
    const QString file = takeFile();
    QVERIFY2(file.startsWith(QLatin1String("/tmp/record_")), qPrintable(file));
    QVERIFY(!m_timer->isActive());
    QTest::qWait(1500); // past the time that was asked for
    QVERIFY(replies().isEmpty());
}

void RecordAudioHandlerTest::stopsAtOnceInTheSameRequest()
{
    ask(R"({"stop": true, "start": true})");
    QVERIFY(!takeFile().isEmpty());
    QVERIFY(!m_timer->isActive());
    QTRY_COMPARE_WITH_TIMEOUT(m_recorder->state(), QMediaRecorder::StoppedState, timeoutMs);
}

void RecordAudioHandlerTest::repliesToAStopWithoutARecording()
{
    ask(R"({"stop": true})");
    QCOMPARE(takeFile(), QString());
}

void RecordAudioHandlerTest::repliesAgainWithTheLastFile()
{
    ask(R"({"start": true})");
    ask(R"({"stop": true})");
    const QString file = takeFile();
    ask(R"({"stop": true})");
    QCOMPARE(takeFile(), file);
}

void RecordAudioHandlerTest::namesTheFileByTheTime()
{
    const QDateTime before = QDateTime::currentDateTime();
    ask(R"({"start": true})");
    const QDateTime after = QDateTime::currentDateTime();
    ask(R"({"stop": true})");
    const QString file = takeFile();
    const QRegularExpression name(
        QStringLiteral("^/tmp/record_(\\d{4}-\\d\\d-\\d\\d_\\d\\d:\\d\\d:\\d\\d\\.\\d{3})\\.wav$"));
    const QRegularExpressionMatch match = name.match(file);
    QVERIFY2(match.hasMatch(), qPrintable(file));
    const QDateTime time =
        QDateTime::fromString(match.captured(1), QStringLiteral("yyyy-MM-dd_hh:mm:ss.zzz"));
    QVERIFY2(time >= before && time <= after, qPrintable(file));
}

void RecordAudioHandlerTest::startsAnewWhileRecording()
{
    ask(R"({"start": true, "timeout": 4})");
    waitForSound(500);
    const QString first = m_recorder->outputLocation().toLocalFile();
    ask(R"({"start": true, "timeout": 60})");
    QCOMPARE(m_timer->interval(), 60000);
    QTRY_VERIFY_WITH_TIMEOUT(m_recorder->outputLocation().toLocalFile() != first, timeoutMs);
    rememberFile();
    QTest::qWait(4200);
    QVERIFY(replies().isEmpty()); // the first one gets no reply of its own
    ask(R"({"stop": true})");
    const QString second = takeFile();
    QVERIFY(second != first);
    compareHasSound(first);
    compareHasSound(second);
}

void RecordAudioHandlerTest::startsAgainAtOnceAfterAStop()
{
    // The first file is not closed yet.
    ask(R"({"start": true})");
    waitForSound(500);
    ask(R"({"stop": true})");
    const QString first = takeFile();
    ask(R"({"start": true, "timeout": 60})");
    QTRY_VERIFY_WITH_TIMEOUT(m_recorder->outputLocation().toLocalFile() != first, timeoutMs);
    rememberFile();
    waitForSound(500);
    ask(R"({"stop": true})");
    const QString second = takeFile();
    compareHasSound(first);
    compareHasSound(second);
}

void RecordAudioHandlerTest::forgetsAStartThatWaits_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("stop") << QByteArray(R"({"stop": true})");
    QTest::newRow("time") << QByteArray(R"({"start": true, "timeout": 0})");
}

void RecordAudioHandlerTest::forgetsAStartThatWaits()
{
    QFETCH(QByteArray, end);
    ask(R"({"start": true})");
    waitForSound(500);
    ask(R"({"stop": true})");
    takeFile();
    ask(R"({"start": true})");
    ask(end);
    QTRY_COMPARE_WITH_TIMEOUT(replies().count(), 1, timeoutMs);
    log().skipDebug();
    const QString second = takeFile();
    QTRY_VERIFY_WITH_TIMEOUT(m_recorder->status() != QMediaRecorder::FinalizingStatus, timeoutMs);
    turnEventLoop();
    QCOMPARE(m_recorder->state(), QMediaRecorder::StoppedState);
    QVERIFY(!QFile::exists(second));
}

void RecordAudioHandlerTest::hasStoppedWhenItReplies()
{
    QMediaRecorder::State state = QMediaRecorder::RecordingState;
    brocker()->subscribe(response,
                         [this, &state](const Message &) { state = m_recorder->state(); });
    log().skipDebug();
    ask(R"({"start": true})");
    ask(R"({"stop": true})");
    takeFile();
    QCOMPARE(state, QMediaRecorder::StoppedState);
}

void RecordAudioHandlerTest::repliesWhenNothingCouldBeRecorded()
{
    m_recorder->setAudioInput(QStringLiteral("alsa:no-such-microphone"));
    QSignalSpy errors(m_recorder.data(),
                      QOverload<QMediaRecorder::Error>::of(&QMediaRecorder::error));
    ask(R"({"start": true, "timeout": 1})");
    QTRY_COMPARE_WITH_TIMEOUT(replies().count(), 1, timeoutMs);
    const QString file = takeFile();
    QVERIFY2(file.startsWith(QLatin1String("/tmp/record_")), qPrintable(file));
    QVERIFY(!errors.isEmpty());
}

void RecordAudioHandlerTest::doesNothingWithoutACommand()
{
    ask("{}");
    ask(R"({"timeout": 1})");
    QVERIFY(!m_timer->isActive());
    QCOMPARE(m_recorder->state(), QMediaRecorder::StoppedState);
}

void RecordAudioHandlerTest::recordsWhatIsPlayed()
{
    const QTemporaryDir folder;
    const QString sound = folder.filePath(QStringLiteral("tone.wav"));
    writeWaveFile(sound, tone(440, 30000));
    QVERIFY(shareOf(440, readSoundFile(sound)) > 0.9); // the measure itself
    QMediaPlayer player;
    player.setMedia(QUrl::fromLocalFile(sound));
    player.play();
    QTRY_VERIFY_WITH_TIMEOUT(player.position() > 0, timeoutMs);

    ask(R"({"start": true, "timeout": 60})");
    // The recorder's clock starts when the first sound has come from the server.
    QTRY_VERIFY_WITH_TIMEOUT(m_recorder->duration() > 3000, timeoutMs);
    ask(R"({"stop": true})");
    const QString file = takeFile();
    QTRY_COMPARE_WITH_TIMEOUT(m_recorder->status(), QMediaRecorder::LoadedStatus, timeoutMs);
    player.stop();

    const QVector<qint16> recorded = readSoundFile(file);
    QVERIFY2(recorded.size() > soundSampleRate, qPrintable(QString::number(recorded.size())));
    QVERIFY2(shareOf(440, recorded.mid(recorded.size() - soundSampleRate / 2)) > 0.8,
             qPrintable(file));
    QVERIFY(shareOf(880, recorded.mid(recorded.size() - soundSampleRate / 2)) < 0.1);
}

void RecordAudioHandlerTest::endsWithTheHandler()
{
    ask(R"({"start": true, "timeout": 1})");
    QTRY_COMPARE_WITH_TIMEOUT(m_recorder->state(), QMediaRecorder::RecordingState, timeoutMs);
    brocker()->clear();
    watch(response);
    QVERIFY(!m_recorder);
    QVERIFY(!m_timer);
}

void RecordAudioHandlerTest::mayBeClearedFromItsOwnReply()
{
    const QPointer<QAudioRecorder> recorder = m_recorder;
    int ends = 0;
    brocker()->subscribe(response, [this, &ends](const Message &) {
        ++ends;
        brocker()->clear();
    });
    log().skipDebug();
    ask(R"({"start": true, "timeout": 0})");
    QTRY_COMPARE_WITH_TIMEOUT(ends, 1, timeoutMs); // from the timer's own signal
    turnEventLoop();
    QVERIFY(!recorder);
    replies().clear();
}

void RecordAudioHandlerTest::staysSilentOnceCleared()
{
    const QPointer<QTimer> former = m_timer;
    ask(R"({"start": true, "timeout": 60})");
    const QString host = QStringLiteral("cookie.set");
    brocker()->subscribe(host, [this, &former](const Message &) {
        brocker()->clear();
        create();
        QVERIFY(former); // in a delivery it lives on, beside its successor
        former->start(0);
        QTRY_VERIFY(!former->isActive());
    });
    brocker()->publish(Message(host));
    turnEventLoop();
    QVERIFY(!former);
    QVERIFY(replies().isEmpty());
}

QTEST_GUILESS_MAIN(RecordAudioHandlerTest)
#include "tst_recordaudiohandler.moc"
