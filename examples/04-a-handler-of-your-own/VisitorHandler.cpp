#include "VisitorHandler.h"

#include "panorel/Panorel.h"

VisitorHandler::VisitorHandler(panorel::Panorel *screen)
    : m_screen(screen)
{ }

QString VisitorHandler::topic() const { return QStringLiteral("visitor.count"); }

void VisitorHandler::handle(panorel::Message message)
{
    // A page may send anything: what is missing or of another kind counts as nobody.
    const int count = message.attributes().value(QStringLiteral("arrived")).toInt();
    if (count < 0)
        return; // nobody arrives backwards: dropped

    m_visitors += count;
    m_screen->customEvent({{QStringLiteral("event"), QStringLiteral("visitors")},
                           {QStringLiteral("count"), m_visitors}});
}
