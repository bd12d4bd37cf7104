#include "simulator/app/CommandLine.h"

#include "tests/support/TestCase.h"

using simulator::CommandLine;

class CommandLineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void readsEverything();
    void rejects_data();
    void rejects();
    void helpNamesEveryOption();
    void readsHowToServe();
    void takesDevicesAway_data();
    void takesDevicesAway();
    void namesTheDevicesThatItKnows();

private:
    /// The first letters of what the robot does not have, in the order of the help.
    static QString missing(const CommandLine &line)
    {
        const simulator::RobotCore::Equipment &has = line.equipment();
        const QPair<bool, char> devices[] = {
            {has.printer, 'P'},         {has.dispenser, 'D'}, {has.passportScanner, 'p'},
            {has.documentScanner, 'd'}, {has.keyboard, 'k'},  {has.users, 'u'},
        };
        QString letters;
        for (const auto &device : devices) {
            if (!device.first)
                letters.append(QLatin1Char(device.second));
        }
        return letters;
    }
    static CommandLine parse(const QStringList &arguments)
    {
        return CommandLine(QStringList{QStringLiteral("panorel-simulator")} + arguments);
    }
};

void CommandLineTest::defaults()
{
    const CommandLine line = parse({});
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QVERIFY(line.page().isEmpty());
    QVERIFY(line.scenario().isEmpty());
    QVERIFY(line.screenshot().isEmpty());
    QVERIFY(line.data().isEmpty());
    QVERIFY(!line.demo());
    QVERIFY(!line.log());
    QVERIFY(!line.serve());
    QCOMPARE(line.speed(), 1.0);
    QCOMPARE(missing(line), QString());
}

void CommandLineTest::readsEverything()
{
    const CommandLine line =
        parse({QStringLiteral("--page"), QStringLiteral("a b"), QStringLiteral("--demo"),
               QStringLiteral("--screenshot=x.png"), QStringLiteral("--speed"),
               QStringLiteral("2.5"), QStringLiteral("--log"), QStringLiteral("--scenario=y.json"),
               QStringLiteral("--data=c d")});
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QVERIFY(line.mistake().isEmpty());
    QCOMPARE(line.page(), QStringLiteral("a b"));
    QCOMPARE(line.scenario(), QStringLiteral("y.json"));
    QCOMPARE(line.screenshot(), QStringLiteral("x.png"));
    QVERIFY(line.demo());
    QVERIFY(line.log());
    QCOMPARE(line.speed(), 2.5);
    QCOMPARE(line.data(), QStringLiteral("c d"));
}

void CommandLineTest::rejects_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("says");
    const auto row = [](const char *name, const QStringList &arguments, const QString &says) {
        QTest::newRow(name) << arguments << says;
    };
    row("unknown option", {QStringLiteral("--fly")}, QStringLiteral("fly"));
    row("no value", {QStringLiteral("--page")}, QStringLiteral("page"));
    row("empty page", {QStringLiteral("--page=")}, QStringLiteral("--page"));
    row("empty scenario", {QStringLiteral("--scenario=")}, QStringLiteral("--scenario"));
    row("empty file", {QStringLiteral("--screenshot=")}, QStringLiteral("--screenshot"));
    row("empty folder", {QStringLiteral("--data=")}, QStringLiteral("--data"));
    row("stray argument", {QStringLiteral("page.html")}, QStringLiteral("page.html"));
    row("empty devices", {QStringLiteral("--without=")}, QStringLiteral("--without"));
    row("unknown device", {QStringLiteral("--without=printer,toaster")},
        QStringLiteral("\"toaster\""));
    row("device in capitals", {QStringLiteral("--without=Printer")}, QStringLiteral("\"Printer\""));
    row("missing device name", {QStringLiteral("--without=printer,")}, QStringLiteral("\"\""));
    row("no port", {QStringLiteral("--serve"), QStringLiteral("--port=http")},
        QStringLiteral("--port"));
    row("port too large", {QStringLiteral("--serve"), QStringLiteral("--port=65536")},
        QStringLiteral("65535"));
    row("name to listen at", {QStringLiteral("--serve"), QStringLiteral("--listen=robot")},
        QStringLiteral("0.0.0.0"));
    row("no origin", {QStringLiteral("--serve"), QStringLiteral("--allow-origin=localhost")},
        QStringLiteral("--allow-origin"));
    row("picture of nothing", {QStringLiteral("--serve"), QStringLiteral("--screenshot=a.png")},
        QStringLiteral("--screenshot"));
    for (const char *option :
         {"--window", "--port=0", "--listen=::1", "--allow-origin=http://a", "--one-browser"})
        row(option, {QLatin1String(option)}, QStringLiteral("only with --serve"));
    for (const char *speed : {"fast", "0", "-1", "nan", "inf", "10001", ""}) {
        row(qPrintable(QStringLiteral("speed %1").arg(QLatin1String(speed))),
            {QStringLiteral("--speed=%1").arg(QLatin1String(speed))}, QStringLiteral("--speed"));
    }
}

void CommandLineTest::rejects()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, says);
    const CommandLine line = parse(arguments);
    QCOMPARE(line.outcome(), CommandLine::Outcome::Mistake);
    QVERIFY2(line.mistake().contains(says), qPrintable(line.mistake()));
    QVERIFY(line.mistake().contains(QStringLiteral("--help")));
}

void CommandLineTest::helpNamesEveryOption()
{
    QCOMPARE(parse({QStringLiteral("--help")}).outcome(), CommandLine::Outcome::ShowHelp);
    QCOMPARE(parse({QStringLiteral("-h")}).outcome(), CommandLine::Outcome::ShowHelp);
    for (const char *option : {"--page", "--scenario", "--screenshot", "--demo", "--speed",
                               "--data", "--without", "--log", "--help", "--serve", "--window",
                               "--port", "--listen", "--allow-origin", "--one-browser"})
        QVERIFY2(CommandLine::helpText().contains(QLatin1String(option)), option);
}

void CommandLineTest::readsHowToServe()
{
    const CommandLine plain = parse({QStringLiteral("--serve")});
    QVERIFY(plain.serve());
    QCOMPARE(plain.server().port, static_cast<quint16>(8080));
    QCOMPARE(plain.server().address, QHostAddress(QHostAddress::LocalHost));
    QVERIFY(!plain.server().singleBrowser);
    QVERIFY(!plain.showsServedPage());
    QVERIFY(parse({QStringLiteral("--serve"), QStringLiteral("--window")}).showsServedPage());
    QVERIFY(plain.server().token != parse({QStringLiteral("--serve")}).server().token);

    const CommandLine line = parse(
        {QStringLiteral("--serve"), QStringLiteral("--port=0"), QStringLiteral("--listen=0.0.0.0"),
         QStringLiteral("--allow-origin=http://localhost:5173"),
         QStringLiteral("--allow-origin=https://b"), QStringLiteral("--one-browser")});
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QCOMPARE(line.server().port, static_cast<quint16>(0));
    QCOMPARE(line.server().address, QHostAddress(QHostAddress::AnyIPv4));
    QCOMPARE(line.server().origins,
             (QStringList{QStringLiteral("http://localhost:5173"), QStringLiteral("https://b")}));
    QVERIFY(line.server().singleBrowser);
}

void CommandLineTest::takesDevicesAway_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("without");
    const auto row = [](const QStringList &arguments, const QString &without) {
        QTest::newRow(qPrintable(arguments.join(QLatin1Char(' ')))) << arguments << without;
    };
    row({QStringLiteral("--without=printer")}, QStringLiteral("P"));
    row({QStringLiteral("--without=dispenser")}, QStringLiteral("D"));
    row({QStringLiteral("--without=passport-scanner")}, QStringLiteral("p"));
    row({QStringLiteral("--without=document-scanner")}, QStringLiteral("d"));
    row({QStringLiteral("--without=keyboard")}, QStringLiteral("k"));
    row({QStringLiteral("--without=users")}, QStringLiteral("u"));
    row({QStringLiteral("--without"), QStringLiteral("users, printer,users")},
        QStringLiteral("Pu"));
    row({QStringLiteral("--without=users"), QStringLiteral("--without=keyboard")},
        QStringLiteral("ku"));
}

void CommandLineTest::takesDevicesAway()
{
    QFETCH(QStringList, arguments);
    const CommandLine line = parse(arguments);
    QCOMPARE(line.outcome(), CommandLine::Outcome::Run);
    QTEST(missing(line), "without");
}

void CommandLineTest::namesTheDevicesThatItKnows()
{
    const CommandLine line = parse({QStringLiteral("--without=toaster")});
    const QString names =
        QStringLiteral("printer, dispenser, passport-scanner, document-scanner, keyboard, users");
    QVERIFY2(line.mistake().contains(names), qPrintable(line.mistake()));
    QVERIFY(CommandLine::helpText().simplified().contains(names));
}

QTEST_GUILESS_MAIN(CommandLineTest)

#include "tst_commandline.moc"
