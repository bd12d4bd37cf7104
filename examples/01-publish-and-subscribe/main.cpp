// The bus by itself, without a window: who subscribes to a topic gets each message of that topic.

#include "panorel/Constants.h"
#include "panorel/PanorelQueueBrocker.h"

#include <QJsonDocument>
#include <QTextStream>

using panorel::Message;
using namespace panorel::constants;

int main()
{
    QTextStream out(stdout);
    panorel::PanorelQueueBrocker bus;

    bus.subscribe(USER_SAID, [&](const Message &message) {
        out << "heard: " << message.attributes().value(QStringLiteral("text")).toString() << '\n';
        // A handler may publish while it runs; the reply is delivered before this returns.
        bus.publish(Message(ROBOT_REPLIC_START,
                            {{QStringLiteral("text"), QStringLiteral("Good morning!")}}));
    });
    bus.subscribe(ROBOT_REPLIC_START, [&](const Message &message) {
        // This is what a page would receive.
        out << QJsonDocument(message.toJson()).toJson(QJsonDocument::Compact) << '\n';
    });

    bus.publish(Message(USER_SAID,
                        {{QStringLiteral("text"), QStringLiteral("Hello robot")},
                         {QStringLiteral("is_finish"), true}}));
    return 0;
}
