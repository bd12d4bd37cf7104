#include "tests/support/TestCase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

constexpr int timeoutMs = 30000;

} // namespace

/// Runs the README's examples and the numbered ones as a newcomer would.
class ExamplesTest : public TestCase
{
    Q_OBJECT

private:
    /// Starts a program and waits until it has written @p text; what it wrote.
    QByteArray outputUntil(const QString &program, const QStringList &arguments,
                           const QByteArray &text)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        QByteArray output;
        const bool found = QTest::qWaitFor(
            [&] {
                output += process.readAll();
                return output.contains(text) || process.state() == QProcess::NotRunning;
            },
            timeoutMs);
        process.terminate();
        if (!process.waitForFinished(5000)) {
            process.kill();
            process.waitForFinished();
        }
        output += process.readAll();
        if (!found || !output.contains(text))
            QTest::qFail(output.constData(), __FILE__, __LINE__);
        return output;
    }

private Q_SLOTS:
    void readmeHostAndReadmePageTalk();
    void publishAndSubscribe();
    void pages_data();
    void pages();
    void eachWantsAPage_data();
    void eachWantsAPage();
};

void ExamplesTest::readmeHostAndReadmePageTalk()
{
    // The page asks for a language, the host answers with an event, the page repeats what it hears.
    outputUntil(QStringLiteral(README_HOST), {QStringLiteral(README_PAGE)}, "You said Guten Tag");
}

void ExamplesTest::publishAndSubscribe()
{
    QProcess process;
    process.start(QStringLiteral(EXAMPLES "01-publish-and-subscribe"), QStringList());
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitCode(), 0);
    const QList<QByteArray> lines = process.readAllStandardOutput().trimmed().split('\n');
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.first(), QByteArray("heard: Hello robot"));
    const QJsonObject json = QJsonDocument::fromJson(lines.last()).object();
    QCOMPARE(json.value(QStringLiteral("type")).toString(),
             QStringLiteral("dialog.robot.replic.start"));
    QCOMPARE(json.value(QStringLiteral("text")).toString(), QStringLiteral("Good morning!"));
}

void ExamplesTest::pages_data()
{
    QTest::addColumn<QByteArrayList>("lines");

    QTest::newRow("02-show-a-page") << QByteArrayList({"My name is "});
    QTest::newRow("03-a-topic-of-your-own") << QByteArrayList({"On sunday: closed."});
    QTest::newRow("04-a-handler-of-your-own")
        << QByteArrayList({"2 visitors so far.", "5 visitors so far."});
    QTest::newRow("05-a-robot-core-of-your-own")
        << QByteArrayList({"Here is your card.", "Here is your card.", "No cards are left.",
                           "This robot has no printer."});
}

void ExamplesTest::pages()
{
    QFETCH(QByteArrayList, lines);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QString page = QStringLiteral(EXAMPLE_PAGES) + name + QStringLiteral("/page.html");
    const QByteArray output =
        outputUntil(QStringLiteral(EXAMPLES) + name, {page}, lines.constLast());
    int from = 0;
    for (const QByteArray &line : qAsConst(lines)) {
        from = output.indexOf(line, from) + line.size();
        QVERIFY2(from >= line.size(), output.constData());
    }
}

void ExamplesTest::eachWantsAPage_data() { pages_data(); }

void ExamplesTest::eachWantsAPage()
{
    QProcess process;
    process.start(QStringLiteral(EXAMPLES) + QString::fromLatin1(QTest::currentDataTag()),
                  QStringList());
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().contains("Usage"));
}

QTEST_GUILESS_MAIN(ExamplesTest)
#include "tst_examples.moc"
