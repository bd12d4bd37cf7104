#include "simulator/app/RobotScreen.h"

#include "tests/support/TestCase.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <QWebEngineView>

using simulator::RobotScreen;

/// What a page may ask of the machine, with a camera that the web engine makes up.
class RobotScreenTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void answersWhatThePageAsksFor_data();
    void answersWhatThePageAsksFor();

protected:
    bool isForeign(const QString &) const override { return true; } // of the web engine
};

void RobotScreenTest::answersWhatThePageAsksFor_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("answer");
    const QString media = QStringLiteral("navigator.mediaDevices.getUserMedia(%1)"
                                         ".then(s => end(s.getTracks().length), e => end(e.name))");
    QTest::newRow("camera") << media.arg(QStringLiteral("{video: true}")) << QStringLiteral("1");
    QTest::newRow("microphone") << media.arg(QStringLiteral("{audio: true}"))
                                << QStringLiteral("1");
    QTest::newRow("both") << media.arg(QStringLiteral("{video: true, audio: true}"))
                          << QStringLiteral("2");
    QTest::newRow("position") << QStringLiteral(
        "navigator.geolocation.getCurrentPosition(() => end('there'), e => end('no ' + e.code))")
                              << QStringLiteral("no 1");
}

void RobotScreenTest::answersWhatThePageAsksFor()
{
    QFETCH(QString, script);
    QFETCH(QString, answer);
    QTemporaryDir folder;
    QFile page(folder.filePath(QStringLiteral("page.html")));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write("<script>const end = (text) => { document.title = 'end ' + text };" + script.toUtf8()
               + "</script>");
    page.close();

    RobotScreen screen;
    screen.load(QUrl::fromLocalFile(page.fileName()).toString());
    screen.show();
    QTRY_VERIFY_WITH_TIMEOUT(screen.view()->title().startsWith(QStringLiteral("end ")), 20000);
    QCOMPARE(screen.view()->title(), QStringLiteral("end ") + answer);
}

int main(int argc, char *argv[])
{
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
            qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --use-fake-device-for-media-stream");
    QApplication application(argc, argv);
    RobotScreenTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_robotscreen.moc"
