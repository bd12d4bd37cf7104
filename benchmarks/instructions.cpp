// Does one piece of work a fixed number of times, for callgrind to count its instructions: times
// differ from run to run, counts do not. Run by scripts/instructions.py.
//
//   panorel-bench-instructions --list     the works, and how often each is done: one a line
//   panorel-bench-instructions --about    what the counts depend on: name=value, one a line
//   panorel-bench-instructions WORK       does it; started under callgrind with --instr-atstart=no
//
// Qt draws a hash seed for each process, which moves a count by 1 %.

#include "benchmarks/FaceReport.h"
#include "benchmarks/Handlers.h"
#include "benchmarks/Work.h"
#include "panorel/Constants.h"
#include "panorel/PanorelQueueBrocker.h"

#include <QJsonObject>
#include <QLoggingCategory>

#include <cstdio>
#include <cstring>
#include <vector>

#include <gnu/libc-version.h>
#include <valgrind/callgrind.h>

using panorel::Message;
using panorel::PanorelQueueBrocker;

namespace {

constexpr int topics = 96;

/// Counts only the loop. The work is done a few times before, so that the loop finds symbols bound,
/// static objects made and memory at hand.
template <typename Work>
void count(int times, const Work &work)
{
    for (int i = 0; i < topics; ++i)
        work();
    CALLGRIND_START_INSTRUMENTATION;
    for (int i = 0; i < times; ++i)
        work();
    CALLGRIND_STOP_INSTRUMENTATION;
}

void subscribeAll(PanorelQueueBrocker &bus, int handlers)
{
    for (int i = 0; i < topics; ++i)
        for (int handler = 0; handler < handlers; ++handler)
            bus.subscribe(topic(i), makeHandler().release());
}

/// In turn, so that no topic's place in the table decides.
void publishEach(int times, PanorelQueueBrocker &bus, const std::vector<Message> &messages)
{
    std::size_t next = 0;
    count(times, [&] {
        bus.publish(messages[next]);
        next = next + 1 < messages.size() ? next + 1 : 0;
    });
}

void publish(int times, int handlers)
{
    PanorelQueueBrocker bus;
    subscribeAll(bus, handlers);
    std::vector<Message> messages;
    messages.reserve(topics);
    for (int i = 0; i < topics; ++i)
        messages.emplace_back(topic(i), attributes());
    publishEach(times, bus, messages);
}

void publishTo1(int times) { publish(times, 1); }
void publishTo16(int times) { publish(times, 16); }

void publishUnheard(int times)
{
    PanorelQueueBrocker bus;
    subscribeAll(bus, 1);
    std::vector<Message> messages;
    messages.reserve(topics);
    for (int i = 0; i < topics; ++i)
        messages.emplace_back(QStringLiteral("nobody.cares.%1").arg(i), attributes());
    publishEach(times, bus, messages);
}

/// The compiler must take it that @p value is looked at.
template <typename Value>
void keep(const Value &value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

void makeMessage(int times)
{
    const QString type = topic(0);
    const QVariantMap map = attributes();
    count(times, [&] {
        const Message message(type, map);
        keep(message);
    });
}

void reportFaces(int times)
{
    const QVector<FaceInfoPtr> seen = faceReport(20, 5);
    count(times, [&] {
        const QJsonObject json =
            Message(panorel::constants::FACE_RECOGNIZE_INFO, faceAttributes(seen)).toJson();
        keep(json);
    });
}

const struct
{
    const char *name;
    int times;
    void (*run)(int times);
} works[] = {
    {"publish-1", 960 * topics, publishTo1},
    {"publish-16", 96 * topics, publishTo16},
    {"publish-unheard", 960 * topics, publishUnheard},
    {"make-message", 100 * 256, makeMessage}, // whole blocks of randomness
    {"face-report", 200, reportFaces},
};

void tellAbout()
{
#ifdef __clang__
    const char *const compiler = "Clang " __VERSION__;
#else
    const char *const compiler = "GCC " __VERSION__;
#endif
#ifdef __OPTIMIZE__
    const char *const optimised = "yes";
#else
    const char *const optimised = "no";
#endif
    std::printf("build type=%s\noptimised=%s\ncompiler=%s\nQt=%s\nlibc=%s\n", PANOREL_BUILD_TYPE,
                optimised, compiler, qVersion(), gnu_get_libc_version());
}

} // namespace

int main(int argc, char **argv)
{
    const char *const wanted = argc == 2 ? argv[1] : "--list";
    if (std::strcmp(wanted, "--about") == 0) {
        tellAbout();
        return 0;
    }
    if (std::strcmp(wanted, "--list") == 0) {
        for (const auto &work : works)
            std::printf("%s %d\n", work.name, work.times);
        return 0;
    }
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    for (const auto &work : works) {
        if (std::strcmp(wanted, work.name) == 0) {
            work.run(work.times);
            return 0;
        }
    }
    std::fprintf(stderr, "no work is called %s; see --list\n", wanted);
    return 2;
}
