#include "panorel/handlers/MailSenderHandler.h"

#include "tests/handlers/MailTestCase.h"
#include "tests/support/PageRequest.h"

using panorel::MailSenderHandler;
using panorel::Message;

namespace {

constexpr char toAnn[] = R"({"email": "ann@example.com"})";
constexpr char toBob[] = R"({"email": "bob@example.com"})";
const QString ann = QStringLiteral("ann@example.com");
const QString bob = QStringLiteral("bob@example.com");

} // namespace

class MailSenderHandlerTest : public MailTestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        MailTestCase::setUp();
        plugin()->email = {{QStringLiteral("sender"), QStringLiteral("robot@example.com")},
                           {QStringLiteral("login"), QStringLiteral("robot")},
                           {QStringLiteral("password"), QStringLiteral("s3cret")},
                           {QStringLiteral("host"), QStringLiteral("mail.example.com")},
                           {QStringLiteral("port"), 587},
                           {QStringLiteral("sequrity"), 1}};
        create(plugin());
    }

    void create(PluginInterface *host)
    {
        watch(m_response);
        subscribe(new MailSenderHandler(host, brocker()), QStringLiteral("mail.sender.request"));
    }
    void ask(const QByteArray &json)
    {
        request(fromPage(json), QStringLiteral("MailSenderHandler"));
    }
    void waitForReplies(int count)
    {
        QTRY_COMPARE(replies().count(), count);
        log().skipDebug();
    }
    /// The one sending, once it has come.
    TestMailServer::Sending sending()
    {
        if (!QTest::qWaitFor([] { return server().sendings().size() == 1; })) {
            QTest::qFail("there is not one sending", __FILE__, __LINE__);
            return {};
        }
        return server().sendings().first();
    }

private Q_SLOTS:
    void sendsFromTheHostsAccount();
    void readsTheAccount_data();
    void readsTheAccount();
    void forgetsTheAccountButNotTheSender();
    void usesAnAccountWithoutASettingAtAll();
    void sendsWhatThePageWrote();
    void sendsEmptyTextsByDefault();
    void readsTextsByConversion();
    void sendsNothingWithoutARecipient();
    void sendsToAnEmptyRecipient_data();
    void sendsToAnEmptyRecipient();
    void answersSuccess();
    void answersAnError_data();
    void answersAnError();
    void sendsOnAThreadOfThePool();
    void sendsSeveralAtOnce();
    void neverLogsThePassword();
    void dropsNothingWithoutAHost();
};

void MailSenderHandlerTest::sendsFromTheHostsAccount()
{
    ask(toAnn);
    waitForReplies(1);
    replies().clear();
    QCOMPARE(server().accounts().size(), 1);
    const TestMailServer::Account account = server().accounts().first();
    QCOMPARE(account.host, QStringLiteral("mail.example.com"));
    QCOMPARE(account.port, 587);
    QCOMPARE(account.security, 1);
    QCOMPARE(account.login, QStringLiteral("robot"));
    QCOMPARE(account.password, QStringLiteral("s3cret"));
    QVERIFY(!account.hasParent);
    QCOMPARE(sending().account, 0);
    QCOMPARE(sending().from, QStringLiteral("robot@example.com"));
}

void MailSenderHandlerTest::readsTheAccount_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("integer") << QVariant(25) << 25 << QStringLiteral("25");
    QTest::newRow("text of a number")
        << QVariant(QStringLiteral("465")) << 465 << QStringLiteral("465");
    QTest::newRow("no number") << QVariant(QStringLiteral("smtp")) << 0 << QStringLiteral("smtp");
    QTest::newRow("invalid") << QVariant() << 0 << QString();
    QTest::newRow("negative") << QVariant(-1) << -1 << QStringLiteral("-1");
}

void MailSenderHandlerTest::readsTheAccount()
{
    QFETCH(QVariant, value);
    QFETCH(int, number);
    QFETCH(QString, text);
    for (QVariant &setting : plugin()->email)
        setting = value;
    ask(toAnn);
    waitForReplies(1);
    replies().clear();
    const TestMailServer::Account account = server().accounts().first();
    QCOMPARE(account.host, text);
    QCOMPARE(account.port, number);
    QCOMPARE(account.security, number);
    QCOMPARE(account.login, text);
    QCOMPARE(account.password, text);
    QCOMPARE(sending().from, text);
}

void MailSenderHandlerTest::forgetsTheAccountButNotTheSender()
{
    ask(toAnn);
    plugin()->email.clear();
    ask(toBob);
    waitForReplies(2);
    replies().clear();
    const TestMailServer::Account account = server().accounts().at(1);
    QCOMPARE(account.host, QString());
    QCOMPARE(account.port, 0);
    QCOMPARE(account.security, 0);
    QCOMPARE(account.login, QString());
    QCOMPARE(account.password, QString());
    const auto sendings = server().sendings();
    for (const TestMailServer::Sending &sent : sendings)
        QCOMPARE(sent.from, QStringLiteral("robot@example.com"));
}

void MailSenderHandlerTest::usesAnAccountWithoutASettingAtAll()
{
    plugin()->email.clear();
    // Spelt as it should be, it is no setting.
    plugin()->email.insert(QStringLiteral("security"), 2);
    ask(toAnn);
    waitForReplies(1);
    replies().clear();
    QCOMPARE(server().accounts().first().security, 0);
    QCOMPARE(sending().from, QString());
}

void MailSenderHandlerTest::sendsWhatThePageWrote()
{
    ask(R"({"email": "ann@example.com", "subject": "Grüße", "body": "a\nb", "filename": "/x.pdf"})");
    waitForReplies(1);
    replies().clear();
    QCOMPARE(sending().to, ann);
    QCOMPARE(sending().subject, QStringLiteral("Grüße"));
    QCOMPARE(sending().body, QStringLiteral("a\nb"));
    QCOMPARE(sending().files, QStringList({QStringLiteral("/x.pdf")}));
}

void MailSenderHandlerTest::sendsEmptyTextsByDefault()
{
    // An earlier request leaves nothing behind.
    ask(R"({"email": "bob@example.com", "subject": "s", "body": "b", "filename": "f"})");
    waitForReplies(1);
    ask(toAnn);
    waitForReplies(2);
    replies().clear();
    const TestMailServer::Sending sent = server().sendings().at(1);
    QCOMPARE(sent.to, ann);
    QCOMPARE(sent.subject, QString());
    QCOMPARE(sent.body, QString());
    QCOMPARE(sent.files, QStringList({QString()})); // one path, if an empty one
}

void MailSenderHandlerTest::readsTextsByConversion()
{
    ask(R"({"email": 1, "subject": true, "body": [1], "filename": null})");
    waitForReplies(1);
    replies().clear();
    QCOMPARE(sending().to, QStringLiteral("1"));
    QCOMPARE(sending().subject, QStringLiteral("true"));
    QCOMPARE(sending().body, QString());
    QCOMPARE(sending().files, QStringList({QString()}));
}

void MailSenderHandlerTest::sendsNothingWithoutARecipient()
{
    makesUpAttributes({"to"});
    ask(R"({"subject": "s", "body": "b", "to": "ann@example.com"})");
    QThreadPool::globalInstance()->waitForDone();
    turnEventLoop();
    QVERIFY(server().sendings().isEmpty());
    QCOMPARE(server().accounts().size(), 1); // the sender is there and idle
}

void MailSenderHandlerTest::sendsToAnEmptyRecipient_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {R"({"email": ""})", R"({"email": null})", R"({"email": {}})"})
        QTest::newRow(json) << QByteArray(json);
}

void MailSenderHandlerTest::sendsToAnEmptyRecipient()
{
    // Present is present: what to make of it is the mail server's business.
    QFETCH(QByteArray, json);
    ask(json);
    waitForReplies(1);
    replies().clear();
    QCOMPARE(sending().to, QString());
}

void MailSenderHandlerTest::answersSuccess()
{
    ask(toAnn);
    waitForReplies(1);
    const Message reply = replies().take();
    QCOMPARE(reply.type(), m_response);
    QCOMPARE(reply.attributes(),
             QVariantMap({{QStringLiteral("status"), QStringLiteral("success")}}));
    QCOMPARE(server().sendings().size(), 1);
}

void MailSenderHandlerTest::answersAnError_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("codeText");
    QTest::addColumn<QString>("text");
    QTest::newRow("refused") << 535 << QStringLiteral("535")
                             << QStringLiteral("Authentication failed");
    QTest::newRow("no text") << 1 << QStringLiteral("1") << QString();
    QTest::newRow("negative") << -7 << QStringLiteral("-7") << QStringLiteral("ä");
    QTest::newRow("large") << 1234567 << QStringLiteral("1234567") << QStringLiteral("x");
}

void MailSenderHandlerTest::answersAnError()
{
    QFETCH(int, code);
    QFETCH(QString, codeText);
    QFETCH(QString, text);
    server().setOutcome(ann, {code, text, false});
    ask(toAnn);
    waitForReplies(1);
    const QVariantMap attributes = replies().take().attributes();
    QCOMPARE(attributes,
             QVariantMap({{QStringLiteral("status"), QStringLiteral("error")},
                          {QStringLiteral("code"), codeText},
                          {QStringLiteral("text"), text}}));
    QCOMPARE(attributes.value(QStringLiteral("code")).userType(), int(QMetaType::QString));
}

void MailSenderHandlerTest::sendsOnAThreadOfThePool()
{
    QThread *replyThread = nullptr;
    brocker()->subscribe(
        m_response, [&replyThread](const Message &) { replyThread = QThread::currentThread(); });
    log().skipDebug();
    server().setOpen(false);
    ask(toAnn); // returns while the mail is on its way
    QVERIFY(sending().thread != QThread::currentThread());
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 1);
    QVERIFY(replies().isEmpty());
    server().setOpen(true);
    waitForReplies(1);
    replies().clear();
    QCOMPARE(replyThread, QThread::currentThread());
}

void MailSenderHandlerTest::sendsSeveralAtOnce()
{
    if (QThreadPool::globalInstance()->maxThreadCount() < 2)
        QThreadPool::globalInstance()->setMaxThreadCount(2);
    server().setOutcome(bob, {550, QStringLiteral("No such user"), false});
    server().setOpen(false);
    ask(toAnn);
    ask(toBob);
    QTRY_COMPARE(server().sendings().size(), 2);
    QVERIFY(server().sendings().at(0).account != server().sendings().at(1).account);

    // The answers come in the order of the ends.
    server().letPass(bob);
    waitForReplies(1);
    QCOMPARE(replies().take().attributes().value(QStringLiteral("code")).toString(),
             QStringLiteral("550"));
    server().letPass(ann);
    waitForReplies(1);
    QCOMPARE(replies().take().attributes().value(QStringLiteral("status")).toString(),
             QStringLiteral("success"));
}

void MailSenderHandlerTest::neverLogsThePassword()
{
    const Message message(QStringLiteral("mail.sender.request"), fromPage(toAnn));
    server().setOutcome(ann, {535, QStringLiteral("no"), false});
    brocker()->publish(message);
    QTRY_COMPARE(replies().count(), 1);
    QVERIFY(!debugText(replies().take().toJson()).contains(QLatin1String("s3cret")));
    const auto lines = log().take();
    for (const LogLine &line : lines)
        QVERIFY2(!line.text.contains(QLatin1String("s3cret")), qPrintable(line.text));
}

void MailSenderHandlerTest::dropsNothingWithoutAHost()
{
    brocker()->clear();
    create(nullptr);
    ask(toAnn); // the sender tells that the account is empty
    waitForReplies(1);
    replies().clear();
    QCOMPARE(server().accounts().first().host, QString());
    QCOMPARE(server().accounts().first().port, 0);
}

QTEST_GUILESS_MAIN(MailSenderHandlerTest)
#include "tst_mailsenderhandler.moc"
