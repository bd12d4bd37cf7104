#include "simulator/server/AccessRules.h"

#include "tests/support/TestCase.h"

using simulator::AccessRules;

class AccessRulesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void makesTokensThatDiffer();
    void knowsItsToken_data();
    void knowsItsToken();
    void knowsItsHost_data();
    void knowsItsHost();
    void knowsOrigins_data();
    void knowsOrigins();
    void knowsItsCookie_data();
    void knowsItsCookie();
    void tellsMistakesInOrigins_data();
    void tellsMistakesInOrigins();

private:
    static AccessRules rules(const QString &address = QStringLiteral("127.0.0.1"))
    {
        return {QHostAddress(address),
                8080,
                QStringLiteral("secret"),
                {QStringLiteral("http://localhost:5173")}};
    }

    const AccessRules m_rules = rules();
};

void AccessRulesTest::makesTokensThatDiffer()
{
    QSet<QString> tokens;
    for (int i = 0; i < 1000; ++i) {
        const QString token = AccessRules::makeToken();
        QCOMPARE(token.size(), 22); // 128 bits, six in a character
        QCOMPARE(QString::fromLatin1(token.toLatin1().toPercentEncoding()), token);
        tokens.insert(token);
    }
    QCOMPARE(tokens.size(), 1000);
}

void AccessRulesTest::knowsItsToken_data()
{
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("right");
    QTest::newRow("right") << QStringLiteral("secret") << true;
    QTest::newRow("none") << QString() << false;
    QTest::newRow("first letter") << QStringLiteral("Secret") << false;
    QTest::newRow("last letter") << QStringLiteral("secreT") << false;
    QTest::newRow("shorter") << QStringLiteral("secre") << false;
    QTest::newRow("longer") << QStringLiteral("secrets") << false;
}

void AccessRulesTest::knowsItsToken()
{
    QFETCH(QString, token);
    QTEST(rules().isToken(token), "right");
}

void AccessRulesTest::knowsItsHost_data()
{
    QTest::addColumn<QString>("address"); // where the server listens
    QTest::addColumn<QByteArray>("host");
    QTest::addColumn<bool>("known");
    const QString loopback = QStringLiteral("127.0.0.1");
    const QString network = QStringLiteral("0.0.0.0");
    QTest::newRow("number") << loopback << QByteArray("127.0.0.1:8080") << true;
    QTest::newRow("name") << loopback << QByteArray("localhost:8080") << true;
    QTest::newRow("name in capitals") << loopback << QByteArray("LOCALHOST:8080") << true;
    QTest::newRow("IPv6") << loopback << QByteArray("[::1]:8080") << true;
    QTest::newRow("other port") << loopback << QByteArray("localhost:8081") << false;
    QTest::newRow("no port") << loopback << QByteArray("localhost") << false;
    QTest::newRow("made to lead here") << loopback << QByteArray("evil.example:8080") << false;
    QTest::newRow("ends like it") << loopback << QByteArray("evil.localhost:8080") << false;
    QTest::newRow("none") << loopback << QByteArray() << false;
    QTest::newRow("garbage") << loopback << QByteArray("\xff\x01:@/") << false;
    QTest::newRow("user") << loopback << QByteArray("localhost:8080@evil.example") << false;
    QTest::newRow("foreign number") << loopback << QByteArray("192.0.2.1:8080") << false;
    QTest::newRow("network: number") << network << QByteArray("192.0.2.1:8080") << true;
    QTest::newRow("network: name") << network << QByteArray("evil.example:8080") << false;
    QTest::newRow("network: own name")
        << network << QSysInfo::machineHostName().toUtf8() + ":8080" << true;
}

void AccessRulesTest::knowsItsHost()
{
    QFETCH(QString, address);
    QFETCH(QByteArray, host);
    QTEST(rules(address).isHost(host), "known");
}

void AccessRulesTest::knowsOrigins_data()
{
    QTest::addColumn<QString>("origin");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("no browser") << QString() << true;
    QTest::newRow("own, by number") << QStringLiteral("http://127.0.0.1:8080") << true;
    QTest::newRow("own, by name") << QStringLiteral("http://localhost:8080") << true;
    QTest::newRow("allowed") << QStringLiteral("http://localhost:5173") << true;
    QTest::newRow("allowed, capitals") << QStringLiteral("HTTP://LOCALHOST:5173") << true;
    QTest::newRow("other port") << QStringLiteral("http://localhost:8081") << false;
    QTest::newRow("other scheme") << QStringLiteral("https://localhost:8080") << false;
    QTest::newRow("other host") << QStringLiteral("http://evil.example:8080") << false;
    QTest::newRow("begins like it") << QStringLiteral("http://localhost:51730") << false;
    QTest::newRow("file or sandbox") << QStringLiteral("null") << false;
    QTest::newRow("garbage") << QStringLiteral("http://") << false;
}

void AccessRulesTest::knowsOrigins()
{
    QFETCH(QString, origin);
    QTEST(rules().isOrigin(origin), "allowed");
}

void AccessRulesTest::knowsItsCookie_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<bool>("right");
    const QByteArray own = m_rules.cookieToSet().split(';').constFirst();
    QTest::newRow("own") << own << true;
    QTest::newRow("among others") << QByteArray("a=b; ") + own + "; c=d" << true;
    QTest::newRow("none") << QByteArray() << false;
    QTest::newRow("wrong value") << own + "x" << false;
    QTest::newRow("server on another port")
        << AccessRules(QHostAddress(QHostAddress::LocalHost), 8081, QStringLiteral("secret"))
               .cookieToSet()
        << false;
    QTest::newRow("name within another") << QByteArray("x") + own << false;
}

void AccessRulesTest::knowsItsCookie()
{
    QFETCH(QByteArray, header);
    QTEST(m_rules.isCookie(header), "right");
    // Other servers of this machine get to see it.
    QVERIFY(!m_rules.cookieToSet().contains("secret"));
    // A script of the page cannot read it, and pages of elsewhere do not send it.
    QVERIFY(m_rules.cookieToSet().endsWith("; Path=/; HttpOnly; SameSite=Strict"));
}

void AccessRulesTest::tellsMistakesInOrigins_data()
{
    QTest::addColumn<QString>("origin");
    QTest::addColumn<bool>("right");
    QTest::newRow("http") << QStringLiteral("http://localhost:5173") << true;
    QTest::newRow("https") << QStringLiteral("https://pages.example") << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("host alone") << QStringLiteral("localhost:5173") << false;
    QTest::newRow("slash") << QStringLiteral("http://localhost:5173/") << false;
    QTest::newRow("query") << QStringLiteral("http://localhost:5173?a") << false;
    QTest::newRow("everybody") << QStringLiteral("*") << false;
    QTest::newRow("no host") << QStringLiteral("http://") << false;
    QTest::newRow("user") << QStringLiteral("http://me@localhost") << false;
}

void AccessRulesTest::tellsMistakesInOrigins()
{
    QFETCH(QString, origin);
    const QString mistake = AccessRules::mistakeInOrigin(origin);
    QTEST(mistake.isEmpty(), "right");
    QVERIFY(mistake.isEmpty() || mistake.contains(origin));
}

QTEST_GUILESS_MAIN(AccessRulesTest)
#include "tst_accessrules.moc"
