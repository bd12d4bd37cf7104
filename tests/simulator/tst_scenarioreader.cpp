#include "simulator/core/ScenarioReader.h"

#include "host/DatabaseDefaults.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

using simulator::DialogScenario;
using simulator::ScenarioReader;

/// The reader, with the example of the document and with the sample.
class ScenarioReaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void readsTheDocumentsExample();
    void readsTheSample();
    void theSampleAnswersInBothLanguages_data();
    void theSampleAnswersInBothLanguages();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysWhenThereIsNoFile();

private:
    /// The path of a scenario file with this content.
    QString write(const QByteArray &content)
    {
        QFile file(m_folder.filePath(QStringLiteral("robot.json")));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the scenario");
        file.write(content);
        return file.fileName();
    }

    QTemporaryDir m_folder;
    QByteArray m_example;
};

void ScenarioReaderTest::initTestCase()
{
    QFile document(QStringLiteral(PANOREL_SCENARIO_DOCUMENT));
    QVERIFY(document.open(QIODevice::ReadOnly));
    const QByteArray text = document.readAll();
    const int begin = text.indexOf("```json\n") + 8;
    m_example = text.mid(begin, text.indexOf("```", begin) - begin);
    QVERIFY(m_example.startsWith('{'));
}

void ScenarioReaderTest::readsTheDocumentsExample()
{
    const ScenarioReader reader(write(m_example));
    QVERIFY2(reader.isRead(), qPrintable(reader.error()));
    const DialogScenario scenario = reader.scenario();
    QCOMPARE(scenario.languages, (QStringList{QStringLiteral("en"), QStringLiteral("de")}));
    QCOMPARE(scenario.macros.value(QStringLiteral("name")).value(QStringLiteral("de")),
             QStringLiteral("Fremder"));
    QCOMPARE(scenario.lines.size(), 5);
    QCOMPARE(scenario.patterns.size(), 2);

    const DialogScenario::Line *hello = scenario.line(QStringLiteral("hello"));
    const Replica greeting = hello->replica(QStringLiteral("en"));
    QCOMPARE(greeting.id(), ID(1, QUuid(QStringLiteral("{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a301}"))));
    QCOMPARE(greeting.type(), Replica::Greeting);
    QCOMPARE(greeting.animation(), AnimationGreeting);
    QCOMPARE(greeting.category(), DatabaseDefaults::defaultCategory());
    QCOMPARE(greeting.actions().size(), 2);
    QCOMPARE(greeting.actions().at(1).raw(), QStringLiteral("smile"));
    QCOMPARE(greeting.screenText(), QStringLiteral("Hello!"));
    QCOMPARE(greeting.url(), QUrl(QStringLiteral("https://example.com/en")));
    QCOMPARE(greeting.anchor(), ID());
    QVERIFY(!hello->forKnownPerson);
    // Without a text of its own, the screen shows what is spoken.
    QCOMPARE(hello->replica(QStringLiteral("de")).screenText(), QStringLiteral("Hallo, %name%!"));

    const DialogScenario::Line *offer = scenario.line(QStringLiteral("offer"));
    const ID coffee(1, QUuid(QStringLiteral("{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a201}")));
    QCOMPARE(offer->anchor, coffee);
    QCOMPARE(offer->step, QStringLiteral("welcome"));
    QCOMPARE(offer->categoryName, QStringLiteral("party"));
    QCOMPARE(offer->category,
             ID(2, QUuid(QStringLiteral("{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a102}"))));
    QCOMPARE(offer->type, Replica::Plain);
    QCOMPARE(offer->choices.size(), 2);
    QCOMPARE(offer->choices.at(1).answer, QStringLiteral("pity"));
    QCOMPARE(offer->choices.at(1).texts.value(QStringLiteral("de")), QStringLiteral("Nein"));

    const QString english = QStringLiteral("en");
    QVERIFY(!scenario.match(QStringLiteral("Yes!"), english, ID()).pattern);
    QCOMPARE(scenario.match(QStringLiteral("Yes!"), english, coffee).pattern->answers,
             QStringList{QStringLiteral("here")});
    QCOMPARE(scenario.match(QStringLiteral("An ESPRESSO"), english, ID()).pattern->id.id(), 2U);
}

void ScenarioReaderTest::readsTheSample()
{
    const ScenarioReader reader;
    QVERIFY2(reader.isRead(), qPrintable(reader.error()));
    const DialogScenario scenario = reader.scenario();
    QCOMPARE(scenario.languages, (QStringList{QStringLiteral("en"), QStringLiteral("de")}));
    QVERIFY(scenario.lines.size() >= 30);
    QSet<QString> steps;
    QSet<int> types;
    int questions = 0;
    for (const DialogScenario::Line &line : scenario.lines) {
        steps.insert(line.step);
        types.insert(line.type);
        questions += line.choices.isEmpty() ? 0 : 1;
    }
    for (const char *step : {"welcome", "help", "goodbye", "badge"})
        QVERIFY2(steps.contains(QLatin1String(step)), step);
    QCOMPARE(types.size(), 5);
    QVERIFY(questions >= 3);
    QVERIFY(scenario.macros.contains(QStringLiteral("floor")));
}

void ScenarioReaderTest::theSampleAnswersInBothLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char *language, const char *said, const char *answer) {
        QTest::newRow(said) << language << QString::fromUtf8(said) << answer;
    };
    row("en", "Where can I get a badge?", "badge-offer");
    row("en", "Where is the exit?", "way-exit");
    row("en", "Is there a café here?", "way-cafe");
    row("en", "Where is it?", "way-where");
    row("en", "What is the wifi password?", "wifi");
    row("en", "What can you do?", "offer");
    row("en", "Hello", "hello-back");
    row("de", "Wo bekomme ich einen Ausweis?", "badge-offer");
    row("de", "Wo ist der Ausgang?", "way-exit");
    row("de", "Wo sind die Aufzüge?", "way-lift");
    row("de", "Wie ist das WLAN-Kennwort?", "wifi");
    row("de", "Danke schön!", "thanks-back");
}

void ScenarioReaderTest::theSampleAnswersInBothLanguages()
{
    QFETCH(QString, language);
    QFETCH(QString, said);
    QFETCH(QString, answer);
    const DialogScenario scenario = ScenarioReader().scenario();
    const DialogScenario::Match match = scenario.match(said, language, ID());
    QVERIFY(match.pattern);
    QCOMPARE(match.pattern->answers, QStringList{answer});
}

void ScenarioReaderTest::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QByteArray>("wrong");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("says");
    const auto row = [](const char *name, const char *right, const char *wrong, const char *place,
                        const char *says) {
        QTest::newRow(name) << QByteArray(right) << QByteArray(wrong) << place << says;
    };
    const char whole[] = "";
    row("no JSON", "\"macros\": {", "\"macros\": [", "line 11, column ", "no JSON");
    row("no object", whole, "[1]", "robot.json", "braces");
    row("empty file", whole, " ", "line 1", "no JSON");
    row("unknown member", "\"macros\"", "\"makros\"", "robot.json", "\"makros\" is not known");
    row("unknown member of a replica", "\"step\"", "\"stp\"", "replicas[1] (offer)",
        "use one of name, id");
    row("no languages", "[\"en\", \"de\"]", "[]", "robot.json", "\"languages\" is missing");
    row("languages as text", "[\"en\", \"de\"]", "\"en\"", "robot.json", "list of texts");
    row("an empty language", "[\"en\", \"de\"]", "[\"en\", \"\"]", "robot.json",
        "entry 2 of \"languages\"");
    row("a language twice", "[\"en\", \"de\"]", "[\"en\", \"en\"]", "robot.json", "twice");
    row("a language too many", "[\"en\", \"de\"]", "[\"en\"]", "macros.name",
        "\"de\" is not known");
    row("a language too few", "\"de\": {\"text\": \"Hallo, %name%!\"}",
        "\"fr\": {\"text\": \"Salut\"}", "replicas[0] (hello).texts",
        "the language \"de\" is missing");
    row("no default category", ", \"default\": true",
        ", \"id\": 3, \"uuid\": \"{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a109}\"", "robot.json",
        "no default");
    row("default as text", "\"default\": true", "\"default\": \"yes\"", "categories[0] (general)",
        "true or false");
    row("two default categories", "\"party\", \"id\": 2", "\"party\", \"default\": true, \"id\": 2",
        "categories[1] (party)", "two default");
    row("default category with an id", "\"default\": true", "\"default\": true, \"id\": 5",
        "categories[0] (general)", "remove \"id\"");
    row("the default's number", "\"party\", \"id\": 2", "\"party\", \"id\": 1",
        "categories[1] (party)", "take another");
    row("a category twice", "\"name\": \"party\"", "\"name\": \"general\"",
        "categories[1] (general)", "name is taken");
    row("categories as object", "\"categories\": [", "\"categories\": {}, \"patterns\": [",
        "robot.json", "list of objects");
    row("a category as text", "{\"name\": \"general\", \"default\": true}", "\"general\"",
        "categories[0]", "braces");
    row("macro with a per cent sign", "\"name\": {\"en\": \"stranger\"",
        "\"na%me\": {\"en\": \"stranger\"", "macros", "per cent");
    row("macro without value", "\"en\": \"stranger\"", "\"en\": 5", "macros.name", "not empty");
    row("no replicas", "\"replicas\": [", "\"replicas\": [], \"patterns\": [", "robot.json",
        "\"replicas\" is missing");
    row("no name", "\"name\": \"hello\", ", "", "replicas[0]", "\"name\" is missing");
    row("a name twice", "\"name\": \"here\"", "\"name\": \"offer\"", "replicas[2] (offer)",
        "name is taken");
    row("no id", "\"name\": \"here\", \"id\": 3", "\"name\": \"here\"", "replicas[2] (here)",
        "whole number");
    row("a broken id", "\"name\": \"here\", \"id\": 3", "\"name\": \"here\", \"id\": 3.5",
        "replicas[2] (here)", "whole number");
    row("an id too large", "\"name\": \"here\", \"id\": 3",
        "\"name\": \"here\", \"id\": 4294967296", "replicas[2] (here)", "whole number");
    row("an id twice", "\"name\": \"here\", \"id\": 3", "\"name\": \"here\", \"id\": 2",
        "replicas[2] (here)", "id 2 is taken");
    row("no uuid", "{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a303}", "6f0c", "replicas[2] (here)",
        "take a new one");
    row("a uuid twice", "0a4d53a6a303", "0a4d53a6a302", "replicas[2] (here)", "is taken");
    row("unknown type", "\"clarification\"", "\"clarify\"", "replicas[4] (what)",
        "plain, greeting, farewell, extra, clarification");
    row("unknown animation", "\"animation\": \"greeting\"", "\"animation\": \"jump\"",
        "replicas[0] (hello)", "is \"jump\"; use one of none, greeting, nod, point, farewell");
    row("unknown category", "\"category\": \"party\"", "\"category\": \"work\"",
        "replicas[1] (offer)", "no category \"work\"");
    row("unknown anchor", "\"anchor\": \"coffee\"", "\"anchor\": \"tea\"", "replicas[1] (offer)",
        "no answer set \"tea\"");
    row("action with a comma", "[\"wave\", \"smile\"]", "[\"wave,smile\"]", "replicas[0] (hello)",
        "comma");
    row("known_person as number", "\"type\": \"greeting\"",
        "\"type\": \"greeting\", \"known_person\": 1", "replicas[0] (hello)", "true or false");
    row("no texts",
        "\"texts\": {\"en\": {\"text\": \"Pardon?\"}, \"de\": {\"text\": \"Wie "
        "bitte?\"}}",
        "\"anchor\": \"coffee\"", "replicas[4] (what)", "\"texts\" is missing");
    row("no text", "{\"text\": \"Pardon?\"}", "{\"screen_text\": \"Pardon?\"}",
        "replicas[4] (what).texts.en", "\"text\" is missing");
    row("an empty text", "\"text\": \"Pardon?\"", "\"text\": \" \"", "replicas[4] (what).texts.en",
        "not empty");
    row("no URL", "https://example.com/en", "http://exa mple", "replicas[0] (hello).texts.en",
        "no address");
    row("choice without answer", ", \"answer\": \"pity\"", "", "replicas[1] (offer).choices[1]",
        "\"answer\" is missing");
    row("choice with unknown answer", "\"answer\": \"pity\"", "\"answer\": \"sad\"", "\"offer\"",
        "\"sad\", but there is no such replica");
    row("a choice twice", "\"en\": \"No\"", "\"en\": \"Yes\"", "replicas[1] (offer).choices[1]",
        "there twice");
    row("choice without a language", "\"en\": \"No\", ", "", "replicas[1] (offer).choices[1].texts",
        "\"en\" is missing");
    row("pattern id twice", "\"id\": 2, \"uuid\": \"{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a402}\"",
        "\"id\": 1, \"uuid\": \"{6f0c2a8e-51f3-4f0e-9d0b-0a4d53a6a402}\"", "patterns[1]",
        "id 1 is taken");
    row("pattern of an unknown set", "\"answer_set\": \"coffee\"", "\"answer_set\": \"tea\"",
        "patterns[0]", "no answer set \"tea\"");
    row("pattern without words", "\"yes *\"", "\"?!\"", "patterns[0].says", "has no words");
    row("empty expressions", "[\"* kaffee *\"]", "[]", "patterns[1].says", "\"de\" is empty");
    row("broken expression", "/\\\\bespress?o\\\\b/", "/(espresso/", "patterns[1].says",
        "no regular expression");
    row("pattern without answer", ",\n      \"answers\": [\"offer\"]", "", "patterns[1]",
        "\"answers\" is missing");
    row("pattern with unknown answer", "[\"offer\"]", "[\"tea\"]", "pattern with id 2",
        "\"tea\", but there is no such replica");
}

void ScenarioReaderTest::saysWhatIsWrong()
{
    QFETCH(QByteArray, right);
    QFETCH(QByteArray, wrong);
    QFETCH(QString, place);
    QFETCH(QString, says);
    QByteArray text = m_example;
    if (right.isEmpty()) {
        text = wrong;
    } else {
        const int at = text.indexOf(right);
        QVERIFY2(at >= 0, right.constData());
        text.replace(at, right.size(), wrong);
    }
    const ScenarioReader reader(write(text));
    const QString error = reader.error();
    QVERIFY(!reader.isRead());
    QVERIFY2(error.contains(QStringLiteral("robot.json: ")), qPrintable(error));
    QVERIFY2(error.contains(place), qPrintable(error));
    QVERIFY2(error.contains(says), qPrintable(error));
    QVERIFY(reader.scenario().lines.isEmpty());
}

void ScenarioReaderTest::saysWhenThereIsNoFile()
{
    for (const QString &path : {m_folder.path(), m_folder.filePath(QStringLiteral("none.json"))}) {
        const ScenarioReader reader(path);
        QVERIFY(!reader.isRead());
        QVERIFY2(reader.error().contains(path), qPrintable(reader.error()));
        QVERIFY2(reader.error().contains(QStringLiteral("--scenario")), qPrintable(reader.error()));
    }
}

QTEST_GUILESS_MAIN(ScenarioReaderTest)

#include "tst_scenarioreader.moc"
