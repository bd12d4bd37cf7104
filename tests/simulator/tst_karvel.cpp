#include "host/karvel.h"

#include "simulator/core/Mixer.h"
#include "simulator/core/ShellCommand.h"
#include "tests/support/TestCase.h"

#include <QElapsedTimer>
#include <QFile>

using simulator::ShellCommand;

class KarvelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheOutputUnaltered_data();
    void givesTheOutputUnaltered();
    void killsWhatTakesTooLong();
    void keepsVolumes_data();
    void keepsVolumes();
};

void KarvelTest::givesTheOutputUnaltered_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("output");
    QTest::newRow("line break stays") << "echo robot"
                                      << "robot\n";
    QTest::newRow("none") << "true"
                          << "";
    QTest::newRow("failure") << "echo before; exit 3"
                             << "before\n";
    QTest::newRow("unknown command") << "no-such-command-here 2>/dev/null"
                                     << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("pipe") << "printf abc | tr a-c A-C"
                          << "ABC";
    QTest::newRow("more than letters") << "printf 'gr\\303\\274n'" << QString::fromUtf8("grün");
    QTest::newRow("input is empty") << "cat"
                                    << "";
}

void KarvelTest::givesTheOutputUnaltered()
{
    QFETCH(QString, command);
    QTEST(karvel::exec(command), "output");
}

void KarvelTest::killsWhatTakesTooLong()
{
    QElapsedTimer timer;
    timer.start();
    const QString output = ShellCommand(QStringLiteral("sleep 60 & echo $!; wait")).run(500);
    QVERIFY(timer.elapsed() < 30000);

    // The shell's child is gone too; where nobody collects it, it stays as a zombie.
    const QString child = output.trimmed();
    QVERIFY2(!child.isEmpty(), "the output before the end is lost");
    const auto isRunning = [&child] {
        QFile status(QStringLiteral("/proc/%1/stat").arg(child));
        return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
    };
    QTRY_VERIFY(!isRunning());
}

void KarvelTest::keepsVolumes_data()
{
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("kept");
    QTest::newRow("middle") << 42 << 42;
    QTest::newRow("lowest") << 0 << 0;
    QTest::newRow("highest") << 100 << 100;
    QTest::newRow("too low") << -1 << 0;
    QTest::newRow("too high") << 101 << 100;
}

void KarvelTest::keepsVolumes()
{
    QFETCH(int, set);
    QFETCH(int, kept);
    karvel::setSoundVolume(set);
    karvel::setMicVolume(100 - set);
    QCOMPARE(karvel::getSoundVolume(), kept);
    QCOMPARE(karvel::getMicVolume(), 100 - kept);
    QCOMPARE(simulator::Mixer::instance().soundVolume(), kept);
}

QTEST_GUILESS_MAIN(KarvelTest)

#include "tst_karvel.moc"
