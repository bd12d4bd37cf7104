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
    void loadAPage();
    void loadAPageWantsAPage();
};

void ExamplesTest::readmeHostAndReadmePageTalk()
{
    // The page asks for a language, the host answers with an event, the page logs its topic.
    outputUntil(QStringLiteral(README_HOST), {QStringLiteral(README_PAGE)}, "\"dialog.user.said\"");
}

void ExamplesTest::publishAndSubscribe()
{
    QProcess process;
    process.start(QStringLiteral(EXAMPLE_PUBLISH), QStringList());
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

void ExamplesTest::loadAPage()
{
    outputUntil(QStringLiteral(EXAMPLE_LOAD), {QStringLiteral(EXAMPLE_LOAD_PAGE)},
                "the page says: floor 3");
}

void ExamplesTest::loadAPageWantsAPage()
{
    QProcess process;
    process.start(QStringLiteral(EXAMPLE_LOAD), QStringList());
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().contains("Usage"));
}

QTEST_GUILESS_MAIN(ExamplesTest)
#include "tst_examples.moc"
