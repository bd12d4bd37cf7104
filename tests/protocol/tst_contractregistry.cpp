#include "tests/protocol/Contract.h"

#include "panorel/FunctionalHandler.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/Panorel_p.h"
#include "tests/page/WidgetTestCase.h"

#include <QMultiMap>

#include <cxxabi.h>

#include <cstdlib>
#include <typeinfo>

using panorel::MessageHandler;
using panorel::PanorelPrivate;
using panorel::PanorelQueueBrocker;

namespace {

using Classes = QMultiMap<QString, QString>;

QString className(const MessageHandler &handler)
{
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(handler).name(), nullptr, nullptr, nullptr), &std::free);
    return QString::fromLatin1(name.get()).section(QStringLiteral("::"), -1);
}

/// Notes the class of each handler, by topic.
class NotingBrocker : public PanorelQueueBrocker
{
public:
    explicit NotingBrocker(Classes *classes)
        : m_classes(classes)
    { }

    using PanorelQueueBrocker::subscribe;
    void subscribe(QString topic, MessageHandler *handler) override
    {
        m_classes->insert(topic, className(*handler));
        PanorelQueueBrocker::subscribe(topic, handler);
    }

private:
    Classes *m_classes;
};

class NotingPrivate : public PanorelPrivate
{
public:
    explicit NotingPrivate(Classes *classes)
        : m_classes(classes)
    { }

protected:
    panorel::MessageQueueBrocker *createBrocker() override { return new NotingBrocker(m_classes); }

private:
    Classes *m_classes;
};

class NotingScreen : public panorel::Panorel
{
public:
    explicit NotingScreen(Classes *classes)
        : Panorel(*new NotingPrivate(classes))
    { }
};

} // namespace

/// Holds the contract of all topics against the handlers of a real widget.
class ContractRegistryTest : public WidgetTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void namesTheHandlerOfEachTopic();
};

void ContractRegistryTest::namesTheHandlerOfEachTopic()
{
    Classes expected;
    const QJsonArray topics = contractTopics();
    for (const QJsonValue &topic : topics) {
        const QString handler = member(topic, QStringLiteral("handler"));
        if (!handler.isEmpty())
            expected.insert(topicOf(topic), handler);
    }
    const QStringList topicsOfThePage = contractTopicsOfThePage();
    for (const QString &topic : topicsOfThePage)
        expected.insert(topic, QStringLiteral("PanorelMessageHandler"));

    Classes classes;
    screen = std::make_unique<NotingScreen>(&classes);
    defaultHandlers();
    // The question handler outlives the bus, so a callable stands there for it.
    const QString question = QStringLiteral("dialog.question.answer");
    QCOMPARE(classes.take(question), QStringLiteral("FunctionalHandler"));
    QVERIFY(dialog->questionHandler);
    classes.insert(question,
                   QString::fromLatin1(dialog->questionHandler->metaObject()->className())
                       .section(QStringLiteral("::"), -1));
    QCOMPARE(classes, expected);
    screen.reset();
}

QTEST_MAIN(ContractRegistryTest)
#include "tst_contractregistry.moc"
