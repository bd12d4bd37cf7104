#include "simulator/core/Mixer.h"

#include "tests/support/TestCase.h"

#include <QThread>

#include <memory>

using simulator::Mixer;

class MixerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reportsChangesOnly();
    void reportsToTheThreadThatListens();

protected:
    void setUp() override
    {
        Mixer::instance().setSoundVolume(50);
        Mixer::instance().setMicrophoneLevel(70);
    }
};

void MixerTest::reportsChangesOnly()
{
    QSignalSpy volume(&Mixer::instance(), &Mixer::soundVolumeChanged);
    QSignalSpy microphone(&Mixer::instance(), &Mixer::microphoneLevelChanged);
    Mixer::instance().setSoundVolume(150);
    Mixer::instance().setSoundVolume(100);
    QCOMPARE(volume.count(), 1);
    QCOMPARE(microphone.count(), 0);
    Mixer::instance().setMicrophoneLevel(-1);
    Mixer::instance().setMicrophoneLevel(0);
    QCOMPARE(microphone.count(), 1);
    QCOMPARE(volume.count(), 1);
}

void MixerTest::reportsToTheThreadThatListens()
{
    QThread *heardOn = nullptr;
    int heard = 0;
    connect(&Mixer::instance(), &Mixer::soundVolumeChanged, this, [&] {
        heardOn = QThread::currentThread();
        heard = Mixer::instance().soundVolume();
    });
    const std::unique_ptr<QThread> thread(
        QThread::create([] { Mixer::instance().setSoundVolume(7); }));
    thread->start();
    QVERIFY(thread->wait(10000));
    QVERIFY(!heardOn);
    QTRY_COMPARE(heard, 7);
    QCOMPARE(heardOn, QThread::currentThread());
}

QTEST_GUILESS_MAIN(MixerTest)

#include "tst_mixer.moc"
