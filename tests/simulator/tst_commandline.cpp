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

private:
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
    QCOMPARE(line.speed(), 1.0);
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
    for (const char *option :
         {"--page", "--scenario", "--screenshot", "--demo", "--speed", "--data", "--log", "--help"})
        QVERIFY2(CommandLine::helpText().contains(QLatin1String(option)), option);
}

QTEST_GUILESS_MAIN(CommandLineTest)

#include "tst_commandline.moc"
