// A host's use of the bus, the records and the default paths, seen from outside.

#include "host/Replica.h"
#include "panorel/Constants.h"
#include "panorel/PanorelQueueBrocker.h"
#include "panorel/RobotPaths.h"
#include "panorel/handlers/LogEventHandler.h"

#include <cstdio>

namespace {

int failures = 0;

void check(bool right, const char *what)
{
    if (!right) {
        std::fprintf(stderr, "wrong: %s\n", what);
        ++failures;
    }
}

} // namespace

int main()
{
    panorel::PanorelQueueBrocker bus;
    auto *handler = new panorel::LogEventHandler;
    bus.subscribe(handler->topic(), handler);
    int received = 0;
    bus.subscribe(panorel::constants::LOG, [&received](const panorel::Message &) { ++received; });
    bus.publish(panorel::Message(panorel::constants::LOG));
    check(received == 1, "delivery");

    Replica replica;
    replica.setActions(QStringLiteral("wave,nod"));
    check(replica.actions().size() == 2, "records");

    check(panorel::paths::statisticDirectory() == QStringLiteral("/home/karvel/.karvel/statistic/"),
          "default folder of the statistics");
    return failures;
}
