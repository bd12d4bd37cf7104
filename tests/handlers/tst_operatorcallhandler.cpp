#include "panorel/handlers/OperatorCallHandler.h"

#include "tests/support/HandlerTestCase.h"

using panorel::OperatorCallHandler;

class OperatorCallHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void passesOnTheCall_data();
    void passesOnTheCall();
    void doesNothingWithoutACall();
    void dropsRequestsWithoutAHost();
};

void OperatorCallHandlerTest::passesOnTheCall_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("call");
    QTest::newRow("call") << QVariant(true) << true;
    QTest::newRow("withdraw") << QVariant(false) << false;
    QTest::newRow("text") << QVariant(QStringLiteral("true")) << true;
    QTest::newRow("null") << QVariant::fromValue(nullptr) << false;
}

void OperatorCallHandlerTest::passesOnTheCall()
{
    QFETCH(QVariant, value);
    QFETCH(bool, call);
    subscribe(new OperatorCallHandler(plugin()), QStringLiteral("operator.call.request"));
    request({{QStringLiteral("call"), value}}, QStringLiteral("OperatorCallHandler"));
    QCOMPARE(takeCalls(), QVector<HostCall>({{QStringLiteral("operatorCall"), {call}}}));
}

void OperatorCallHandlerTest::doesNothingWithoutACall()
{
    subscribe(new OperatorCallHandler(plugin()), QStringLiteral("operator.call.request"));
    request({}, QStringLiteral("OperatorCallHandler"));
}

void OperatorCallHandlerTest::dropsRequestsWithoutAHost()
{
    subscribe(new OperatorCallHandler(nullptr), QStringLiteral("operator.call.request"));
    request({{QStringLiteral("call"), true}}, QStringLiteral("OperatorCallHandler"));
}

QTEST_GUILESS_MAIN(OperatorCallHandlerTest)
#include "tst_operatorcallhandler.moc"
