#include "simulator/app/SoundPanel.h"

#include "host/karvel.h"
#include "simulator/core/Mixer.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <QSlider>
#include <QThread>

#include <memory>

using namespace simulator;

class SoundPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void slidersSetTheMixer();
    void slidersFollowThePage();
    void slidersFollowAnotherThread();

protected:
    void setUp() override
    {
        Mixer::instance().setSoundVolume(50);
        Mixer::instance().setMicrophoneLevel(70);
        m_panel = std::make_unique<SoundPanel>();
    }
    void tearDown() override { m_panel.reset(); }

private:
    QSlider *volume() const { return controls::find<QSlider>(m_panel.get(), "volume"); }
    QSlider *microphone() const { return controls::find<QSlider>(m_panel.get(), "microphone"); }

    std::unique_ptr<SoundPanel> m_panel;
};

void SoundPanelTest::slidersSetTheMixer()
{
    QTest::keyClick(volume(), Qt::Key_End);
    QCOMPARE(karvel::getSoundVolume(), 100);
    QCOMPARE(controls::text(m_panel.get(), "volumeNumber"), QStringLiteral("100"));
    QTest::keyClick(volume(), Qt::Key_Left);
    QCOMPARE(karvel::getSoundVolume(), 99);
    QCOMPARE(karvel::getMicVolume(), 70);
    QTest::keyClick(microphone(), Qt::Key_Home);
    QCOMPARE(karvel::getMicVolume(), 0);
    QCOMPARE(controls::text(m_panel.get(), "microphoneNumber"), QStringLiteral("0"));
}

void SoundPanelTest::slidersFollowThePage()
{
    QCOMPARE(volume()->value(), 50);
    QCOMPARE(microphone()->value(), 70);
    QSignalSpy moved(volume(), &QSlider::valueChanged);
    karvel::setSoundVolume(20);
    karvel::setMicVolume(130);
    QCOMPARE(volume()->value(), 20);
    QCOMPARE(moved.count(), 0); // it sets nothing back while it follows
    QCOMPARE(controls::text(m_panel.get(), "volumeNumber"), QStringLiteral("20"));
    QCOMPARE(microphone()->value(), 100);
    QCOMPARE(controls::text(m_panel.get(), "microphoneNumber"), QStringLiteral("100"));
}

// Many reports are on their way while the mixer is already further: none sets it back.
void SoundPanelTest::slidersFollowAnotherThread()
{
    const std::unique_ptr<QThread> thread(QThread::create([] {
        for (int i = 0; i < 20000; ++i)
            Mixer::instance().setSoundVolume(i % 2 == 0 ? 10 : 90);
        Mixer::instance().setSoundVolume(33);
    }));
    thread->start();
    while (!thread->isFinished())
        QCoreApplication::processEvents();
    QTRY_COMPARE(volume()->value(), 33);
    turnEventLoop();
    QCOMPARE(Mixer::instance().soundVolume(), 33);
    QCOMPARE(volume()->value(), 33);
}

QTEST_MAIN(SoundPanelTest)

#include "tst_soundpanel.moc"
