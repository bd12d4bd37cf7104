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

#include <ctime>
#include <memory>
#include <vector>

namespace {

/// All roads that were opened; closed before the application ends.
std::vector<std::unique_ptr<Road>> openRoads;

/// The one road of its kind, opened when it is first needed.
template <typename Kind>
Kind &road()
{
    static Kind *const only = [] {
        openRoads.push_back(std::make_unique<Kind>());
        if (!openRoads.back()->open())
            qFatal("the page did not become ready in time");
        return static_cast<Kind *>(openRoads.back().get());
    }();
    return *only;
}

QString textOf(int64_t bytes) { return QString(static_cast<int>(bytes), QLatin1Char('x')); }

/// As many messages as take some tens of milliseconds.
int batchOf(int64_t bytes)
{
    constexpr int64_t most = 300;
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

void addTiming(benchmark::internal::Benchmark *benchmark)
{
    benchmark->UseManualTime()->Iterations(3)->Unit(benchmark::kMicrosecond);
}

/// From what a request holds to a large photograph; those above 10 KB are growth.
void addSizes(benchmark::internal::Benchmark *benchmark)
{
    for (const int64_t bytes : {100, 1000, 10000, 100000, 1000000, 10000000})
        benchmark->Arg(bytes);
    addTiming(benchmark);
}

void addSmallAndLarge(benchmark::internal::Benchmark *benchmark)
{
    for (const int64_t bytes : {100, 1000, 1000000})
        benchmark->Arg(bytes);
    addTiming(benchmark);
}

void addReports(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Args({20, 5});
    addTiming(benchmark);
}

} // namespace

BENCHMARK_TEMPLATE(events, RawRoad)->Name("events/raw")->Apply(addSizes);
BENCHMARK_TEMPLATE(events, PanorelRoad)->Name("events/panorel")->Apply(addSizes);
BENCHMARK_TEMPLATE(events, NaiveRoad)->Name("events/naive")->Apply(addSmallAndLarge);
BENCHMARK_TEMPLATE(events, PlainSocketRoad)->Name("events/websocket")->Apply(addSmallAndLarge);
BENCHMARK_TEMPLATE(events, SocketChannelRoad)
    ->Name("events/channel-over-websocket")
    ->Apply(addSmallAndLarge);
BENCHMARK_TEMPLATE(events, ScriptRoad)->Name("events/run-java-script")->Apply(addSmallAndLarge);

BENCHMARK_TEMPLATE(trips, RawRoad)->Name("trips/raw")->Apply(addSizes);
BENCHMARK_TEMPLATE(trips, PanorelRoad)->Name("trips/panorel")->Apply(addSizes);
BENCHMARK_TEMPLATE(trips, NaiveRoad)->Name("trips/naive")->Apply(addSmallAndLarge);
BENCHMARK_TEMPLATE(trips, PlainSocketRoad)->Name("trips/websocket")->Apply(addSmallAndLarge);
BENCHMARK_TEMPLATE(trips, SocketChannelRoad)
    ->Name("trips/channel-over-websocket")
    ->Apply(addSmallAndLarge);
BENCHMARK(tripsWithLog)->Name("trips/panorel-with-log")->Apply(addSmallAndLarge);

BENCHMARK(facesRaw)->Name("report/raw")->Apply(addReports);
BENCHMARK(facesPanorel)->Name("report/panorel")->Apply(addReports);
BENCHMARK(facesNaive)->Name("report/naive")->Apply(addReports);

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    const QApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    openRoads.clear();
    return 0;
}
