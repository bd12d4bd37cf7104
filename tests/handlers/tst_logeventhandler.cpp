#include "panorel/handlers/LogEventHandler.h"

#include "tests/support/HandlerTestCase.h"

using panorel::LogEventHandler;
using panorel::Message;

class LogEventHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    /// What the handler logs for a request, without the broker's line.
    QVector<LogLine> linesFor(const QVariantMap &attributes)
    {
        subscribe(new LogEventHandler, QStringLiteral("system.log"));
        brocker()->publish(Message(QStringLiteral("system.log"), attributes));
        return log().take().mid(1);
    }

    const QString m_category = QStringLiteral("panorel");

private Q_SLOTS:
    void logsAtTheNamedLevel_data();
    void logsAtTheNamedLevel();
    void logsNothingAtOtherLevels_data();
    void logsNothingAtOtherLevels();
    void takesAMissingTextAsEmpty();
    void keepsATextOnOneLine();
    void honoursTheCategorysLevels();
};

void LogEventHandlerTest::logsAtTheNamedLevel_data()
{
    QTest::addColumn<QString>("level");
    QTest::addColumn<int>("type");
    QTest::newRow("debug") << QStringLiteral("debug") << int(QtDebugMsg);
    QTest::newRow("info") << QStringLiteral("info") << int(QtInfoMsg);
    QTest::newRow("warning") << QStringLiteral("warning") << int(QtWarningMsg);
    QTest::newRow("critical") << QStringLiteral("critical") << int(QtCriticalMsg);
    QTest::newRow("capitals") << QStringLiteral("WARNING") << int(QtWarningMsg);
    QTest::newRow("mixed") << QStringLiteral("CriTical") << int(QtCriticalMsg);
}

void LogEventHandlerTest::logsAtTheNamedLevel()
{
    QFETCH(QString, level);
    QFETCH(int, type);
    const QVector<LogLine> expected{
        {static_cast<QtMsgType>(type), m_category, QStringLiteral("\"Hello\"")}};
    QCOMPARE(linesFor({{QStringLiteral("level"), level},
                       {QStringLiteral("message"), QStringLiteral("Hello")}}),
             expected);
}

void LogEventHandlerTest::logsNothingAtOtherLevels_data()
{
    QTest::addColumn<QVariantMap>("attributes");
    const QVariant text = QStringLiteral("Hello");
    QTest::newRow("none") << QVariantMap{{QStringLiteral("message"), text}};
    for (const char *level : {"", "fatal", "warn", " info", "1"}) {
        QTest::newRow(level) << QVariantMap{{QStringLiteral("message"), text},
                                            {QStringLiteral("level"), QString::fromLatin1(level)}};
    }
    QTest::newRow("null") << QVariantMap{{QStringLiteral("message"), text},
                                         {QStringLiteral("level"), QVariant::fromValue(nullptr)}};
}

void LogEventHandlerTest::logsNothingAtOtherLevels()
{
    QFETCH(QVariantMap, attributes);
    QCOMPARE(linesFor(attributes), QVector<LogLine>());
}

void LogEventHandlerTest::takesAMissingTextAsEmpty()
{
    const QVector<LogLine> expected{{QtInfoMsg, m_category, QStringLiteral("\"\"")}};
    QCOMPARE(linesFor({{QStringLiteral("level"), QStringLiteral("info")}}), expected);
}

void LogEventHandlerTest::keepsATextOnOneLine()
{
    const QVector<LogLine> expected{
        {QtInfoMsg, m_category, QStringLiteral("\"%s%n\\npanorel: forged \\\"x\\\"\"")}};
    QCOMPARE(linesFor({{QStringLiteral("level"), QStringLiteral("info")},
                       {QStringLiteral("message"), QStringLiteral("%s%n\npanorel: forged \"x\"")}}),
             expected);
}

void LogEventHandlerTest::honoursTheCategorysLevels()
{
    QLoggingCategory::setFilterRules(
        QStringLiteral("panorel.debug=true\npanorel.info=false\npanorel.warning=false"));
    QCOMPARE(linesFor({{QStringLiteral("level"), QStringLiteral("warning")}}), QVector<LogLine>());
}

QTEST_GUILESS_MAIN(LogEventHandlerTest)
#include "tst_logeventhandler.moc"
