#include "panorel/RobotPaths.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUrl>

#include <signal.h>
#include <sys/types.h>

/// The program as a person starts it.
class SimulatorProgramTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsHelp();
    void rejectsWrongArguments();
    void saysWhenThereIsNoPage();
    void saysWhatIsWrongWithTheScenario();
    void usesTheScenario();
    void saysWhenThePictureCannotBeWritten();
    void saysWhenThePageCannotBeLoaded();
    void takesAPictureOfPageAndPanel();
    void saysWhenItsDataCannotBeKept();
    void runsWithoutDevices();
    void saysWhichDevicesItKnows();
    void makesTheRobotsHome();
    void endsOnASignal_data();
    void endsOnASignal();
    void servesThePage_data();
    void servesThePage();
    void saysWhyItCannotServe_data();
    void saysWhyItCannotServe();

protected:
    void setUp() override
    {
        m_folder.reset(new QTemporaryDir);
        m_data = m_folder->filePath(QStringLiteral("data"));
    }
    void tearDown() override { m_folder.reset(); }

private:
    static const int m_patience = 60000;

    void start(const QStringList &arguments)
    {
        // In a build with sanitizers: the web engine leaks by design when a process ends.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        m_program.setProcessEnvironment(environment);
        QStringList all{QStringLiteral("--data"), m_data};
        all.append(arguments);
        m_program.start(QStringLiteral(PANOREL_SIMULATOR), all);
    }
    /// The exit code; -1 when the program crashed or does not end.
    int run(const QStringList &arguments)
    {
        start(arguments);
        if (!m_program.waitForFinished(m_patience))
            m_program.kill();
        return end();
    }
    int end()
    {
        m_program.waitForFinished(m_patience);
        m_output = QString::fromUtf8(m_program.readAllStandardOutput());
        m_errors = QString::fromUtf8(m_program.readAllStandardError());
        return m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
    }

    QProcess m_program;
    QString m_data;
    QString m_output;
    QString m_errors;
    QScopedPointer<QTemporaryDir> m_folder;
};

void SimulatorProgramTest::showsItsHelp()
{
    QCOMPARE(run({QStringLiteral("--help")}), 0);
    QVERIFY(m_output.contains(QStringLiteral("--screenshot")));
}

void SimulatorProgramTest::rejectsWrongArguments()
{
    QCOMPARE(run({QStringLiteral("--fly")}), 2);
    QVERIFY(m_errors.contains(QStringLiteral("fly")));
    QVERIFY(m_output.isEmpty());
}

void SimulatorProgramTest::saysWhenThereIsNoPage()
{
    QCOMPARE(run({QStringLiteral("--page"), m_folder->path()}), 1);
    QVERIFY2(m_errors.contains(QStringLiteral("--page")), qPrintable(m_errors));
}

void SimulatorProgramTest::saysWhatIsWrongWithTheScenario()
{
    QCOMPARE(run({QStringLiteral("--scenario"), m_folder->path()}), 1);
    QVERIFY2(m_errors.contains(QStringLiteral("--scenario")), qPrintable(m_errors));

    QFile scenario(m_folder->filePath(QStringLiteral("robot.json")));
    QVERIFY(scenario.open(QIODevice::WriteOnly));
    scenario.write("{\n  \"languages\": [\"en\",]\n}");
    scenario.close();
    QCOMPARE(run({QStringLiteral("--scenario"), scenario.fileName()}), 1);
    QVERIFY2(m_errors.contains(QStringLiteral("robot.json: line 2")), qPrintable(m_errors));
}

// The page asks for the replica of a step that only this scenario has, and tells of it.
void SimulatorProgramTest::usesTheScenario()
{
    QFile scenario(m_folder->filePath(QStringLiteral("robot.json")));
    QVERIFY(scenario.open(QIODevice::WriteOnly));
    scenario.write(R"({
  "languages": ["en"],
  "categories": [{"name": "general", "default": true}],
  "replicas": [{"name": "own", "id": 1, "uuid": "{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a301}",
                "step": "own", "texts": {"en": {"text": "My own words"}}}]
})");
    scenario.close();
    QFile page(m_folder->filePath(QStringLiteral("index.html")));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(R"(<script src="qrc:///qtwebchannel/qwebchannel.js"></script>
<script>
new QWebChannel(qt.webChannelTransport, (channel) => {
  const core = channel.objects._karvel_internal;
  core.message.connect((message) => {
    if (message.type === 'dialog.robot.replic.start')
      core.sendMessage({ type: 'system.log', level: 'warning', message: 'heard: ' + message.text });
  });
  core.sendMessage({ type: 'dialog.say', step: 'own' });
});
</script>
)");
    page.close();
    start({QStringLiteral("--page"), m_folder->path(), QStringLiteral("--scenario"),
           scenario.fileName()});
    QString errors;
    const auto isHeard = [this, &errors] {
        errors += QString::fromUtf8(m_program.readAllStandardError());
        return errors.contains(QStringLiteral("heard: My own words"));
    };
    QTRY_VERIFY_WITH_TIMEOUT(isHeard(), m_patience);
    m_program.terminate();
    QCOMPARE(end(), 0);
}

void SimulatorProgramTest::saysWhenThePictureCannotBeWritten()
{
    const QString file = m_folder->filePath(QStringLiteral("no/such/folder.png"));
    QCOMPARE(run({QStringLiteral("--screenshot"), file}), 1);
    QVERIFY2(m_errors.contains(QStringLiteral("--screenshot")), qPrintable(m_errors));
}

void SimulatorProgramTest::saysWhenThePageCannotBeLoaded()
{
    const QString file = m_folder->filePath(QStringLiteral("picture.png"));
    // Nobody listens on this port of this machine.
    QCOMPARE(run({QStringLiteral("--screenshot"), file, QStringLiteral("--page"),
                  QStringLiteral("http://127.0.0.1:1/")}),
             1);
    QVERIFY2(m_errors.contains(QStringLiteral("could not be loaded")), qPrintable(m_errors));
    QVERIFY(!QFile::exists(file));
}

void SimulatorProgramTest::takesAPictureOfPageAndPanel()
{
    const QString file = m_folder->filePath(QStringLiteral("picture.png"));
    QFile page(m_folder->filePath(QStringLiteral("index.html")));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(R"(<!doctype html>
<html style="background: #0000ff"><body><h1 style="color: #ffffff">Page</h1>
<script src="qrc:///qtwebchannel/qwebchannel.js"></script>
<script>
new QWebChannel(qt.webChannelTransport, (channel) => {
  const core = channel.objects._karvel_internal;
  core.message.connect((message) => {
    if (message.type === 'user.has.user') document.documentElement.style.background = '#00ff00';
  });
  core.sendMessage({ type: 'system.interaction.control', state: 'Start' });
});
</script></body></html>
)");
    page.close();

    const int code = run({QStringLiteral("--screenshot"), file, QStringLiteral("--page"),
                          m_folder->path(), QStringLiteral("--speed"), QStringLiteral("20")});
    QVERIFY2(code == 0, qPrintable(m_errors));
    const QImage picture(file, "PNG");
    QVERIFY(picture.width() >= 1000);
    QVERIFY(picture.height() >= 600);
    // The page, as it is painted after the person has come; and the panel beside it.
    QCOMPARE(QColor(picture.pixel(200, picture.height() - 50)), QColor(0, 255, 0));
    QVERIFY(QColor(picture.pixel(picture.width() - 5, 5)) != QColor(0, 255, 0));
}

void SimulatorProgramTest::saysWhenItsDataCannotBeKept()
{
    // It runs on, until it finds no page: nobody listens on this port of this machine.
    const QStringList arguments{QStringLiteral("--screenshot"),
                                m_folder->filePath(QStringLiteral("picture.png")),
                                QStringLiteral("--page"), QStringLiteral("http://127.0.0.1:1/")};
    QCOMPARE(run(arguments), 1);
    QVERIFY2(!m_errors.contains(QStringLiteral("database")), qPrintable(m_errors));
    QVERIFY(QFile::exists(m_data + QStringLiteral("/users.sqlite")));

    m_data = m_folder->filePath(QStringLiteral("file"));
    QFile file(m_data);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(run(arguments), 1);
    QVERIFY2(m_errors.contains(m_data), qPrintable(m_errors));
    QVERIFY(m_errors.contains(QStringLiteral("--data")));
    QVERIFY(m_errors.contains(QStringLiteral("could not be loaded")));
}

// The page asks for each device, and tells what it hears.
void SimulatorProgramTest::runsWithoutDevices()
{
    QFile page(m_folder->filePath(QStringLiteral("index.html")));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(R"(<script src="qrc:///qtwebchannel/qwebchannel.js"></script>
<script>
new QWebChannel(qt.webChannelTransport, (channel) => {
  const core = channel.objects._karvel_internal;
  core.message.connect((message) => {
    core.sendMessage({ type: 'system.log', level: 'warning', message: 'heard: ' + message.type });
  });
  core.sendMessage({ type: 'printer.print', data: '', ignore_not_connected: false });
  core.sendMessage({ type: 'dispenser.dispense', ignore_not_connected: false });
});
</script>
)");
    page.close();
    start({QStringLiteral("--page"), m_folder->path(), QStringLiteral("--without"),
           QStringLiteral("printer,dispenser,passport-scanner,document-scanner,keyboard,users")});
    QString errors;
    const auto isHeard = [this, &errors] {
        errors += QString::fromUtf8(m_program.readAllStandardError());
        return errors.contains(QStringLiteral("heard: printer.noprinter"))
            && errors.contains(QStringLiteral("heard: dispenser.nodispenser"));
    };
    QTRY_VERIFY_WITH_TIMEOUT(isHeard(), m_patience);
    m_program.terminate();
    QCOMPARE(end(), 0);
    QVERIFY(!QFile::exists(m_data + QStringLiteral("/users.sqlite")));
}

void SimulatorProgramTest::saysWhichDevicesItKnows()
{
    QCOMPARE(run({QStringLiteral("--without"), QStringLiteral("toaster")}), 2);
    QVERIFY2(m_errors.contains(QStringLiteral("\"toaster\"")), qPrintable(m_errors));
    QVERIFY(m_errors.contains(QStringLiteral("passport-scanner")));
}

void SimulatorProgramTest::endsOnASignal_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void SimulatorProgramTest::endsOnASignal()
{
    QFETCH(int, number);
    QFile page(m_folder->filePath(QStringLiteral("index.html")));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(R"(<script src="qrc:///qtwebchannel/qwebchannel.js"></script>
<script>
new QWebChannel(qt.webChannelTransport, (channel) => {
  channel.objects._karvel_internal.sendMessage({ type: 'system.log', level: 'warning',
                                                 message: 'page is ready' });
});
</script>
)");
    page.close();
    start({QStringLiteral("--page"), m_folder->path()});

    QString errors;
    const auto isReady = [this, &errors] {
        errors += QString::fromUtf8(m_program.readAllStandardError());
        return errors.contains(QStringLiteral("page is ready"));
    };
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), m_patience);
    QCOMPARE(::kill(static_cast<pid_t>(m_program.processId()), number), 0);
    QCOMPARE(end(), 0);
}

void SimulatorProgramTest::makesTheRobotsHome()
{
    const QString home = QFileInfo(panorel::paths::printPicture()).path();
    const QString aside = home + QStringLiteral(".aside");
    const bool wasThere = QDir().rename(home, aside);
    start({QStringLiteral("--serve"), QStringLiteral("--port=0")});
    QTRY_VERIFY_WITH_TIMEOUT(m_program.canReadLine(), m_patience);
    m_program.terminate();
    const bool isThere = QDir().rmdir(home);
    if (wasThere)
        QVERIFY(QDir().rename(aside, home));
    QCOMPARE(end(), 0);
    QVERIFY(isThere);
}

void SimulatorProgramTest::servesThePage_data()
{
    QTest::addColumn<QString>("listen");
    QTest::addColumn<bool>("warns");
    QTest::newRow("this machine") << QStringLiteral("127.0.0.1") << false;
    QTest::newRow("network") << QStringLiteral("0.0.0.0") << true;
}

void SimulatorProgramTest::servesThePage()
{
    QFETCH(QString, listen);
    QFile page(m_folder->filePath(QStringLiteral("hello.html")));
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write("<h1>hello</h1>");
    page.close();
    start({QStringLiteral("--serve"), QStringLiteral("--port=0"), QStringLiteral("--listen"),
           listen, QStringLiteral("--page"), page.fileName()});

    QTRY_VERIFY_WITH_TIMEOUT(m_program.canReadLine(), m_patience);
    const QString line = QString::fromUtf8(m_program.readLine()).trimmed();
    QVERIFY2(line.startsWith(QStringLiteral("Serving http://127.0.0.1:")), qPrintable(line));
    const QUrl address(line.mid(8));
    QCOMPARE(address.path(), QStringLiteral("/hello.html"));

    QTcpSocket socket;
    socket.connectToHost(address.host(), static_cast<quint16>(address.port()));
    socket.write("GET /hello.html?" + address.query().toUtf8()
                 + " HTTP/1.0\r\nHost: " + address.authority().toUtf8() + "\r\n\r\n");
    QTRY_VERIFY(socket.bytesAvailable() > 0 && socket.peek(10000).endsWith("<h1>hello</h1>"));

    QCOMPARE(::kill(static_cast<pid_t>(m_program.processId()), SIGTERM), 0);
    QCOMPARE(end(), 0);
    QTEST(m_errors.contains(QStringLiteral("Warning: other machines")), "warns");
}

void SimulatorProgramTest::saysWhyItCannotServe_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("says");
    QTest::newRow("page of a server") << QStringList{QStringLiteral("--page=http://localhost:1/")}
                                      << QStringLiteral("a file or a folder");
    QTest::newRow("foreign address")
        << QStringList{QStringLiteral("--listen=192.0.2.1")} << QStringLiteral("192.0.2.1");
}

void SimulatorProgramTest::saysWhyItCannotServe()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, says);
    QCOMPARE(run(QStringList{QStringLiteral("--serve"), QStringLiteral("--port=0")} + arguments),
             1);
    QVERIFY2(m_errors.contains(says), qPrintable(m_errors));
    QVERIFY(m_output.isEmpty());
}

QTEST_GUILESS_MAIN(SimulatorProgramTest)

#include "tst_simulatorprogram.moc"
