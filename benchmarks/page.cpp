// What it costs to reach a page and to be reached by it, beside the least (a bare view with a web
// channel and finished objects), the straightforward implementation, and other roads to a page.
//
// Names: group/variant/argument, as in bus.cpp. Except for face reports, the time is that from the
// first message until the page has told that it is done.

#include "benchmarks/FaceReport.h"
#include "benchmarks/page/OtherRoads.h"
#include "panorel/Constants.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace {

/// All roads that were opened; closed before the application ends.
std::vector<std::unique_ptr<Road>> &openRoads()
{
    static std::vector<std::unique_ptr<Road>> roads;
    return roads;
}

/// The one road of its kind, opened when it is first needed.
template <typename Kind>
Kind &road()
{
    static Kind *const only = [] {
        openRoads().push_back(std::make_unique<Kind>());
        if (!openRoads().back()->open())
            qFatal("the page did not become ready in time");
        return static_cast<Kind *>(openRoads().back().get());
    }();
    return *only;
}

QString textOf(int64_t bytes) { return QString(static_cast<int>(bytes), QLatin1Char('x')); }

/// As many messages as take some milliseconds.
int batchOf(int64_t bytes)
{
    constexpr int64_t most = 100;
    constexpr int64_t bytesOfABatch = 3000000;
    return static_cast<int>(qBound(int64_t{1}, bytesOfABatch / bytes, most));
}

void setTimePerMessage(benchmark::State &state, qint64 nanoseconds, int messages)
{
    state.SetIterationTime(static_cast<double>(nanoseconds) * 1e-9 / messages);
}

/// Events from the host to the page: argument bytes.
template <typename Kind>
void events(benchmark::State &state)
{
    Road &road = ::road<Kind>();
    const int messages = batchOf(state.range(0));
    road.prepare(textOf(state.range(0)));
    for (auto _ : state) {
        road.run(QStringLiteral("expect(%1)").arg(messages));
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < messages; ++i)
            road.send();
        if (!road.waitUntilDone())
            return state.SkipWithError("the page did not receive all events in time");
        setTimePerMessage(state, timer.nsecsElapsed(), messages);
    }
}

/// The page asks, the host answers, the page asks again: argument bytes.
template <typename Kind>
void trips(benchmark::State &state)
{
    Road &road = ::road<Kind>();
    const int messages = batchOf(state.range(0));
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        road.run(QStringLiteral("roundTrips(%1, %2)").arg(messages).arg(state.range(0)));
        if (!road.waitUntilDone())
            return state.SkipWithError("the page did not finish in time");
        setTimePerMessage(state, timer.nsecsElapsed(), messages);
    }
}

/// Round trips through the library with its log on, and thrown away.
void tripsWithLog(benchmark::State &state)
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=true"));
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    trips<PanorelRoad>(state);
    qInstallMessageHandler(before);
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
}

qint64 threadNanoseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64{time.tv_sec} * 1000000000 + time.tv_nsec;
}

/// A face report to the web channel: what it costs the GUI thread, which then waits for the page.
/// Arguments faces, matches.
template <typename Kind, typename Prepare, typename Send>
void faces(benchmark::State &state, Prepare prepare, Send send)
{
    constexpr int reports = 10;
    Kind &road = ::road<Kind>();
    const auto report =
        prepare(faceReport(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
    for (auto _ : state) {
        road.run(QStringLiteral("expect(%1)").arg(reports));
        const qint64 start = threadNanoseconds();
        for (int i = 0; i < reports; ++i)
            send(road, report);
        const qint64 time = threadNanoseconds() - start;
        if (!road.waitUntilDone())
            return state.SkipWithError("the page did not receive all reports in time");
        setTimePerMessage(state, time, reports);
    }
}

naive::Message naiveMessage(const QVector<FaceInfoPtr> &report)
{
    return naive::Message(panorel::constants::FACE_RECOGNIZE_INFO,
                          {{QStringLiteral("info"), naive::faceInfo(report)}});
}

QVector<FaceInfoPtr> asItIs(QVector<FaceInfoPtr> report) { return report; }

void facesRaw(benchmark::State &state)
{
    faces<RawRoad>(
        state, [](const QVector<FaceInfoPtr> &report) { return naiveMessage(report).toJson(); },
        [](RawRoad &road, const QJsonObject &envelope) { road.send(envelope); });
}

void facesNaive(benchmark::State &state)
{
    faces<NaiveRoad>(state, asItIs, [](NaiveRoad &road, const QVector<FaceInfoPtr> &report) {
        road.publish(naiveMessage(report));
    });
}

void facesPanorel(benchmark::State &state)
{
    faces<PanorelRoad>(state, asItIs, [](PanorelRoad &road, const QVector<FaceInfoPtr> &report) {
        road.screen().faceInfo(report);
    });
}

/// What a batch takes varies by a third, so small ones are repeated often.
int repetitionsOf(int64_t bytes, bool isQuick)
{
    int repetitions = 150;
    if (bytes > 1000)
        repetitions = bytes > 1000000 ? 6 : 20;
    return isQuick ? qMax(3, repetitions / 4) : repetitions;
}

using Work = void (*)(benchmark::State &);

benchmark::internal::Benchmark *add(const std::string &name, Work work, int repetitions)
{
    return benchmark::RegisterBenchmark(name.c_str(), work)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(repetitions)
        ->Unit(benchmark::kMicrosecond);
}

/// From what a request holds to a photograph.
void add(const std::string &name, Work work, const std::vector<int64_t> &sizes, bool isQuick)
{
    for (const int64_t bytes : sizes)
        add(name, work, repetitionsOf(bytes, isQuick))->Arg(bytes);
}

void addAll(bool isQuick)
{
    const std::vector<int64_t> goals{100, 1000, 1000000};
    const std::vector<int64_t> growth{100, 1000, 10000, 100000, 1000000, 10000000};

    add("events/raw", events<RawRoad>, growth, isQuick);
    add("events/panorel", events<PanorelRoad>, growth, isQuick);
    add("events/naive", events<NaiveRoad>, growth, isQuick);
    add("events/websocket", events<PlainSocketRoad>, goals, isQuick);
    add("events/channel-over-websocket", events<SocketChannelRoad>, goals, isQuick);
    add("events/run-java-script", events<ScriptRoad>, goals, isQuick);

    add("trips/raw", trips<RawRoad>, growth, isQuick);
    add("trips/panorel", trips<PanorelRoad>, growth, isQuick);
    add("trips/panorel-with-log", tripsWithLog, goals, isQuick);
    add("trips/naive", trips<NaiveRoad>, growth, isQuick);
    add("trips/websocket", trips<PlainSocketRoad>, goals, isQuick);
    add("trips/channel-over-websocket", trips<SocketChannelRoad>, goals, isQuick);

    const int reports = isQuick ? 10 : 40;
    add("report/raw", facesRaw, reports)->Args({20, 5});
    add("report/panorel", facesPanorel, reports)->Args({20, 5});
    add("report/naive", facesNaive, reports)->Args({20, 5});
}

} // namespace

/// Takes the options of Google Benchmark and, as the first one, "--quick".
int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    const bool isQuick = argc > 1 && std::strcmp(argv[1], "--quick") == 0;
    if (isQuick) {
        argv[1] = argv[0];
        ++argv;
        --argc;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    addAll(isQuick);
    const QApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    openRoads().clear();
    return 0;
}
