#include "panorel/handlers/InteractionHandler.h"

#include "tests/support/HandlerTestCase.h"

using panorel::InteractionHandler;
using panorel::Message;

class InteractionHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        watch(QStringLiteral("system.interaction.state"));
        subscribe(new InteractionHandler(host, brocker()),
                  QStringLiteral("system.interaction.control"));
    }

    const QString m_name = QStringLiteral("InteractionHandler");

private Q_SLOTS:
    void startsAndStops_data();
    void startsAndStops();
    void doesNothingWithoutAState();
    void tellsWhenAnInteractionStarts();
    void tellsWhenAnInteractionEnds();
    void asksForTheServiceEachTime();
    void registersTheReason();
    void hearsNothingOnceDeleted();
    void staysSilentOnceCleared();
    void livesWithoutAService();
    void livesWithoutAHost();
};

void InteractionHandlerTest::startsAndStops_data()
{
    QTest::addColumn<QVariant>("state");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("start") << QVariant(QStringLiteral("Start"))
                           << QStringList({QStringLiteral("start")});
    QTest::newRow("stop") << QVariant(QStringLiteral("Stop"))
                          << QStringList({QStringLiteral("stop")});
    QTest::newRow("lower case") << QVariant(QStringLiteral("start")) << QStringList();
    QTest::newRow("capitals") << QVariant(QStringLiteral("STOP")) << QStringList();
    QTest::newRow("other") << QVariant(QStringLiteral("Pause")) << QStringList();
    QTest::newRow("bool") << QVariant(true) << QStringList();
    QTest::newRow("null") << QVariant::fromValue(nullptr) << QStringList();
}

void InteractionHandlerTest::startsAndStops()
{
    QFETCH(QVariant, state);
    QFETCH(QStringList, calls);
    create(plugin());
    request({{QStringLiteral("state"), state}}, m_name);
    QCOMPARE(plugin()->interaction->calls, calls);
}

void InteractionHandlerTest::doesNothingWithoutAState()
{
    create(plugin());
    request({}, m_name);
    QCOMPARE(plugin()->interaction->calls, QStringList());
}

void InteractionHandlerTest::tellsWhenAnInteractionStarts()
{
    create(plugin());
    // Started by the host itself: the page asked for nothing.
    Q_EMIT plugin()->interaction->started(static_cast<Interaction::Reason>(3));
    QCOMPARE(replies().count(), 1);
    const Message message = replies().take();
    QCOMPARE(message.type(), QStringLiteral("system.interaction.state"));
    QCOMPARE(message.attributes(),
             QVariantMap({{QStringLiteral("state"), QStringLiteral("Interaction")},
                          {QStringLiteral("Reason"), 3}}));
    QCOMPARE(message.attributes().value(QStringLiteral("Reason")).userType(), int(QMetaType::Int));
}

void InteractionHandlerTest::tellsWhenAnInteractionEnds()
{
    create(plugin());
    Q_EMIT plugin()->interaction->finished();
    QCOMPARE(replies().count(), 1);
    QCOMPARE(replies().take().attributes(),
             QVariantMap({{QStringLiteral("state"), QStringLiteral("NonInteraction")}}));
}

void InteractionHandlerTest::asksForTheServiceEachTime()
{
    create(plugin());
    const auto first = plugin()->interaction;
    plugin()->interaction = QSharedPointer<TestInteractionService>::create();
    request({{QStringLiteral("state"), QStringLiteral("Start")}}, m_name);
    QCOMPARE(first->calls, QStringList());
    QCOMPARE(plugin()->interaction->calls, QStringList({QStringLiteral("start")}));
}

void InteractionHandlerTest::registersTheReason()
{
    create(plugin());
    QVERIFY(QMetaType::type("Interaction::Reason") != QMetaType::UnknownType);
}

void InteractionHandlerTest::hearsNothingOnceDeleted()
{
    create(plugin());
    brocker()->clear();
    watch(QStringLiteral("system.interaction.state"));
    Q_EMIT plugin()->interaction->started(Interaction::Unknown);
    Q_EMIT plugin()->interaction->finished();
}

void InteractionHandlerTest::staysSilentOnceCleared()
{
    // Cleared inside a delivery it still lives, beside the successor that tells the page.
    create(plugin());
    const QString host = QStringLiteral("cookie.set");
    brocker()->subscribe(host, [this](const Message &) {
        brocker()->clear();
        create(plugin());
        Q_EMIT plugin()->interaction->started(Interaction::Unknown);
        Q_EMIT plugin()->interaction->finished();
    });
    brocker()->publish(Message(host));
    QCOMPARE(replies().count(), 2);
    replies().clear();
}

void InteractionHandlerTest::livesWithoutAService()
{
    plugin()->interaction.reset();
    create(plugin());
    request({{QStringLiteral("state"), QStringLiteral("Start")}}, m_name);
    request({{QStringLiteral("state"), QStringLiteral("Stop")}}, m_name);
}

void InteractionHandlerTest::livesWithoutAHost()
{
    create(nullptr);
    request({{QStringLiteral("state"), QStringLiteral("Start")}}, m_name);
}

QTEST_GUILESS_MAIN(InteractionHandlerTest)
#include "tst_interactionhandler.moc"
