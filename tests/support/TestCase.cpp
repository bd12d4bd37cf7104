#include "tests/support/TestCase.h"

#include "tests/support/CountedHandler.h"
#include "tests/support/MessageContract.h"

#include <QJsonDocument>
#include <QJsonObject>

TestCase::~TestCase()
{
    const QString path = qEnvironmentVariable("PANOREL_TEST_MESSAGES");
    if (!path.isEmpty())
        MessageContract::instance().writeUsed(path);
}

void TestCase::makesUpMessages(std::initializer_list<const char *> topics)
{
    for (const char *topic : topics)
        m_madeUpTopics.append(QString::fromLatin1(topic));
    m_makesUpAll = m_makesUpAll || topics.size() == 0;
}

void TestCase::makesUpAttributes(std::initializer_list<const char *> attributes)
{
    for (const char *attribute : attributes)
        m_madeUpAttributes.append(QString::fromLatin1(attribute));
}

void TestCase::init()
{
    m_madeUpTopics.clear();
    m_madeUpAttributes.clear();
    m_makesUpAll = false;
    m_log = std::make_unique<LogRecorder>();
    setUp();
}

void TestCase::cleanup()
{
    tearDown();
    turnEventLoop();
    const QStringList faults = faultsOfMessages();
    QStringList warnings = m_log->warnings();
    m_log.reset();
    for (auto warning = warnings.begin(); warning != warnings.end();)
        warning = isForeign(*warning) ? warnings.erase(warning) : warning + 1;
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join(QLatin1Char('\n'))));
    QCOMPARE(CountedHandler::count(), 0);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

QStringList TestCase::faultsOfMessages() const
{
    if (m_makesUpAll)
        return {};
    MessageContract &contract = MessageContract::instance();
    QStringList all;
    const QStringList messages = m_log->messages();
    for (const QString &message : messages) {
        const QJsonObject json = QJsonDocument::fromJson(message.toUtf8()).object();
        if (m_madeUpTopics.contains(json.value(QStringLiteral("type")).toString()))
            continue;
        const QStringList faults = contract.faults(message, m_madeUpAttributes);
        if (!faults.isEmpty())
            all += faults + QStringList(QStringLiteral("in ") + message);
        contract.countAsUsed(json, m_madeUpAttributes);
    }
    return all;
}
