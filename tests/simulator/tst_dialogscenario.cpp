#include "simulator/core/DialogScenario.h"

#include "tests/simulator/TestScenario.h"
#include "tests/support/TestCase.h"

using simulator::DialogScenario;

class DialogScenarioTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void matchesWords_data();
    void matchesWords();
    void regularExpressionsSeeTheTextItself();
    void theFirstPatternWins();
    void theActiveSetGoesFirst();
    void patternsAreOfTheirLanguage();
    void theFirstLanguageStandsIn();
    void makesAReplica();
    void findsRecords();
};

void DialogScenarioTest::matchesWords_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("said");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char *pattern, const char *said, bool matches) {
        QTest::newRow(qPrintable(
            QStringLiteral("%1: %2").arg(QString::fromUtf8(pattern), QString::fromUtf8(said))))
            << QString::fromUtf8(pattern) << QString::fromUtf8(said) << matches;
    };
    row("badge", "Badge!", true);
    row("badge", "a badge", false);
    row("* badge *", "Where can I get a badge?", true);
    row("* badge *", "badge", true);
    row("* badge *", "two badges", false);
    row("* badge*", "two badges", true);
    row("*room *", "bedroom, please", true);
    row("where * exit", "where is the exit", true);
    row("where * exit", "WHERE, exit?!", true);
    row("where * exit", "the exit where", false);
    row("what's up", "What's up?", true);
    row("aufzüge *", "AUFZÜGE", true);
    row("a.c", "abc", false);
    row("*", "", true);
    row("*", "anything at all", true);
}

void DialogScenarioTest::matchesWords()
{
    QFETCH(QString, pattern);
    QFETCH(QString, said);
    QFETCH(bool, matches);
    TestScenario scenario;
    scenario.addPattern(pattern, {});
    const DialogScenario::Match match = scenario.match(said, QStringLiteral("en"), ID());
    QCOMPARE(match.pattern != nullptr, matches);
    if (matches)
        QCOMPARE(match.source, pattern);
}

void DialogScenarioTest::regularExpressionsSeeTheTextItself()
{
    TestScenario scenario;
    DialogScenario::Pattern &pattern = scenario.addPattern(QStringLiteral("nothing"), {});
    pattern.expressions[QStringLiteral("en")] = {
        {QStringLiteral("/wi-fi/"), QRegularExpression(QStringLiteral("wi-fi")), false}};
    QVERIFY(scenario.match(QStringLiteral("the wi-fi?"), QStringLiteral("en"), ID()).pattern);
    QVERIFY(!scenario.match(QStringLiteral("the wi fi"), QStringLiteral("en"), ID()).pattern);
}

void DialogScenarioTest::theFirstPatternWins()
{
    TestScenario scenario;
    const ID first = scenario.addPattern(QStringLiteral("* exit *"), {}).id;
    scenario.addPattern(QStringLiteral("*"), {});
    const auto match = scenario.match(QStringLiteral("exit"), QStringLiteral("en"), ID());
    QCOMPARE(match.pattern->id, first);
}

void DialogScenarioTest::theActiveSetGoesFirst()
{
    const ID set(7, QUuid::createUuid());
    TestScenario scenario;
    const ID general = scenario.addPattern(QStringLiteral("yes"), {}).id;
    const ID expected = scenario.addPattern(QStringLiteral("yes"), {}, set).id;
    const ID other = scenario.addPattern(QStringLiteral("no"), {}).id;
    const auto matched = [&scenario](const char *text, const ID &anchor) {
        return scenario.match(QLatin1String(text), QStringLiteral("en"), anchor).pattern->id;
    };
    QCOMPARE(matched("yes", ID()), general);
    QCOMPARE(matched("yes", set), expected);
    QCOMPARE(matched("no", set), other);
    QCOMPARE(matched("yes", ID(8, QUuid::createUuid())), general);
}

void DialogScenarioTest::patternsAreOfTheirLanguage()
{
    TestScenario scenario;
    DialogScenario::Pattern &pattern = scenario.addPattern(QStringLiteral("exit"), {});
    pattern.expressions[QStringLiteral("de")] = {DialogScenario::words(QStringLiteral("ausgang"))};
    QVERIFY(scenario.match(QStringLiteral("Ausgang"), QStringLiteral("de"), ID()).pattern);
    QVERIFY(!scenario.match(QStringLiteral("exit"), QStringLiteral("de"), ID()).pattern);
    QVERIFY(!scenario.match(QStringLiteral("Ausgang"), QStringLiteral("en"), ID()).pattern);
}

void DialogScenarioTest::theFirstLanguageStandsIn()
{
    const TestScenario scenario;
    QCOMPARE(scenario.language(QStringLiteral("de")), QStringLiteral("de"));
    QCOMPARE(scenario.language(QStringLiteral("fr")), QStringLiteral("en"));
    QVERIFY(DialogScenario().language(QStringLiteral("fr")).isEmpty());
}

void DialogScenarioTest::makesAReplica()
{
    TestScenario scenario;
    DialogScenario::Line &line = scenario.addLine(QStringLiteral("way"), Replica::Extra);
    line.anchor = ID(9, QUuid::createUuid());
    line.animation = AnimationPoint;
    line.actions = QStringLiteral("wave,smile");
    line.texts[QStringLiteral("de")].url = QStringLiteral("https://example.com/de");
    const Replica replica = line.replica(QStringLiteral("de"));
    QCOMPARE(replica.id(), line.id);
    QCOMPARE(replica.anchor(), line.anchor);
    QCOMPARE(replica.category(), DatabaseDefaults::defaultCategory());
    QCOMPARE(replica.type(), Replica::Extra);
    QCOMPARE(replica.animation(), AnimationPoint);
    QCOMPARE(replica.actions().size(), 2);
    QCOMPARE(replica.text(), QStringLiteral("way de"));
    QCOMPARE(replica.screenText(), QStringLiteral("WAY DE"));
    QCOMPARE(replica.url(), QUrl(QStringLiteral("https://example.com/de")));
}

void DialogScenarioTest::findsRecords()
{
    TestScenario scenario;
    const ID line = scenario.addLine(QStringLiteral("way")).id;
    const ID pattern = scenario.addPattern(QStringLiteral("x"), {}).id;
    QCOMPARE(scenario.line(QStringLiteral("way"))->id, line);
    QCOMPARE(scenario.line(line)->name, QStringLiteral("way"));
    QVERIFY(scenario.pattern(pattern));
    QVERIFY(!scenario.line(QStringLiteral("no")));
    QVERIFY(!scenario.line(pattern));
    QVERIFY(!scenario.pattern(line));
}

QTEST_GUILESS_MAIN(DialogScenarioTest)

#include "tst_dialogscenario.moc"
