#include "panorel/handlers/LanguageHandler.h"

#include "tests/support/HandlerTestCase.h"

using panorel::LanguageHandler;

class LanguageHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void switchesTheLanguage_data();
    void switchesTheLanguage();
    void doesNothingWithoutALanguage();
    void dropsRequestsWithoutAHost();
};

void LanguageHandlerTest::switchesTheLanguage_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("language");
    QTest::newRow("code") << QVariant(QStringLiteral("en")) << QStringLiteral("en");
    QTest::newRow("unknown code") << QVariant(QStringLiteral("x!")) << QStringLiteral("x!");
    QTest::newRow("empty") << QVariant(QString()) << QString();
    QTest::newRow("number") << QVariant(5.0) << QStringLiteral("5");
    QTest::newRow("null") << QVariant::fromValue(nullptr) << QString();
    QTest::newRow("object") << QVariant(QVariantMap()) << QString();
}

void LanguageHandlerTest::switchesTheLanguage()
{
    QFETCH(QVariant, value);
    QFETCH(QString, language);
    subscribe(new LanguageHandler(plugin()), QStringLiteral("system.language.set"));
    request({{QStringLiteral("language"), value}}, QStringLiteral("LanguageHandler"));
    QCOMPARE(takeCalls(), QVector<HostCall>({{QStringLiteral("language"), {language}}}));
}

void LanguageHandlerTest::doesNothingWithoutALanguage()
{
    subscribe(new LanguageHandler(plugin()), QStringLiteral("system.language.set"));
    request({}, QStringLiteral("LanguageHandler"));
}

void LanguageHandlerTest::dropsRequestsWithoutAHost()
{
    subscribe(new LanguageHandler(nullptr), QStringLiteral("system.language.set"));
    request({{QStringLiteral("language"), QStringLiteral("en")}},
            QStringLiteral("LanguageHandler"));
}

QTEST_GUILESS_MAIN(LanguageHandlerTest)
#include "tst_languagehandler.moc"
