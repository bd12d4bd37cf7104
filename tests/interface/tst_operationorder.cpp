#include "host/IMacrosReplacer.h"
#include "host/QuestionHandler.h"
#include "panorel/MessageHandler.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/PanorelQuestionHandler.h"
#include "tests/support/TestCase.h"

#include <cstddef>
#include <cstring>
#include <functional>

using panorel::Message;
using panorel::MessageHandler;
using panorel::MessageQueueBrocker;

namespace {

/// The place of a virtual operation in its class's table, as the C++ ABI of GCC and Clang on Linux
/// (the Itanium C++ ABI, 2.3) writes it into a pointer to member. -1: not virtual.
template <typename Operation>
int slotOf(Operation operation)
{
    std::ptrdiff_t parts[2];
    static_assert(sizeof operation == sizeof parts, "not the ABI that is expected");
    std::memcpy(parts, &operation, sizeof parts);
#if defined(__aarch64__) || defined(__arm__)
    const bool isVirtual = parts[1] & 1;
    const std::ptrdiff_t offset = parts[0];
#else
    const bool isVirtual = parts[0] & 1;
    const std::ptrdiff_t offset = parts[0] - 1;
#endif
    return isVirtual ? static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void *))) : -1;
}

/// A destructor takes two places: one of its entries frees the memory too.
constexpr int afterDestructor = 2;

/// The first place behind QObject's own operations.
int afterObject()
{
    class Probe : public QObject
    {
    public:
        virtual void first() { }
    };
    return slotOf(&Probe::first);
}

} // namespace

/// The order of virtual operations, which programs that are linked already rely on.
class OperationOrderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void brocker();
    void handler();
    void questionHandler();
    void macrosReplacer();
};

void OperationOrderTest::brocker()
{
    using SubscribeHandler = void (MessageQueueBrocker::*)(QString, MessageHandler *);
    using SubscribeFunction = void (MessageQueueBrocker::*)(QString, std::function<void(Message)>);
    QCOMPARE(slotOf(&MessageQueueBrocker::publish), afterDestructor);
    QCOMPARE(slotOf<SubscribeHandler>(&MessageQueueBrocker::subscribe), afterDestructor + 1);
    QCOMPARE(slotOf<SubscribeFunction>(&MessageQueueBrocker::subscribe), afterDestructor + 2);
    QCOMPARE(slotOf(&MessageQueueBrocker::unSubscribe), afterDestructor + 3);
    QCOMPARE(slotOf(&MessageQueueBrocker::clear), afterDestructor + 4);
}

void OperationOrderTest::handler() { QCOMPARE(slotOf(&MessageHandler::handle), afterDestructor); }

void OperationOrderTest::questionHandler()
{
    QCOMPARE(slotOf(&QuestionHandler::setQuestion), afterObject());
    QCOMPARE(slotOf(&QuestionHandler::cancel), afterObject() + 1);
    QCOMPARE(slotOf(&QuestionHandler::inWork), afterObject() + 2);
    QCOMPARE(slotOf(&panorel::PanorelQuestionHandler::answer), -1);
}

void OperationOrderTest::macrosReplacer()
{
    // Forgetting a macro follows setting it.
    QCOMPARE(slotOf(&IMacrosReplacer::setMacros), afterObject());
    QCOMPARE(slotOf(&IMacrosReplacer::removeMacros), afterObject() + 1);
}

QTEST_GUILESS_MAIN(OperationOrderTest)
#include "tst_operationorder.moc"
