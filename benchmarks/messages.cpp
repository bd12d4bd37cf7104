// What the library's own work costs: records made into an envelope, statistics written to a file.
//
// Names: group/variant/arguments, as in bus.cpp.

#include "benchmarks/FaceReport.h"
#include "benchmarks/NaiveBus.h"
#include "benchmarks/Work.h"
#include "panorel/Constants.h"
#include "panorel/handlers/StatisticEventHandler.h"

#include <QDir>
#include <QJsonObject>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

using panorel::Message;
using panorel::constants::FACE_RECOGNIZE_INFO;

namespace {

QVector<FaceInfoPtr> reportOf(const benchmark::State &state)
{
    return faceReport(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}

// A face report, from the camera's records to the envelope for the page: arguments faces, matches.

void envelopePanorel(benchmark::State &state)
{
    const QVector<FaceInfoPtr> report = reportOf(state);
    for (auto _ : state) {
        QJsonObject envelope = Message(FACE_RECOGNIZE_INFO, faceAttributes(report)).toJson();
        benchmark::DoNotOptimize(envelope);
    }
}

void envelopeNaive(benchmark::State &state)
{
    const QVector<FaceInfoPtr> report = reportOf(state);
    for (auto _ : state) {
        QJsonObject envelope =
            naive::Message(FACE_RECOGNIZE_INFO, {{QStringLiteral("info"), naive::faceInfo(report)}})
                .toJson();
        benchmark::DoNotOptimize(envelope);
    }
}

// Records appended to a file: arguments records, bytes of each.

QString recordOf(const benchmark::State &state)
{
    return QString(static_cast<int>(state.range(1)) - 1, QLatin1Char('x')) + QLatin1Char('\n');
}

void statisticsPanorel(benchmark::State &state)
{
    const QTemporaryDir folder;
    panorel::StatisticEventHandler handler(folder.path());
    QStringList records;
    for (int i = 0; i < state.range(0); ++i)
        records.append(recordOf(state));
    const Message message(
        panorel::constants::STATISTIC,
        {{QStringLiteral("topic"), QStringLiteral("visits")}, {QStringLiteral("data"), records}});
    for (auto _ : state)
        handler.handle(message);
}

/// All records in one piece, to a file whose name is known.
void statisticsByHand(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QByteArray name = folder.filePath(QStringLiteral("visits.csv")).toLocal8Bit();
    const QByteArray records = recordOf(state).toUtf8().repeated(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const int file = open(name.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
        if (write(file, records.constData(), static_cast<size_t>(records.size())) < 0)
            return state.SkipWithError("nothing was written");
        close(file);
    }
}

void addReports(benchmark::internal::Benchmark *benchmark)
{
    for (const int64_t faces : {20, 1, 2, 5, 10, 50, 100, 200})
        benchmark->Args({faces, 5});
}

} // namespace

// These register by static objects. clazy:excludeall=non-pod-global-static
BENCHMARK(envelopePanorel)->Name("envelope/panorel")->Apply(addReports);
BENCHMARK(envelopeNaive)->Name("envelope/naive")->Apply(addReports);
BENCHMARK(statisticsPanorel)->Name("statistics/panorel")->Args({10, 100});
BENCHMARK(statisticsByHand)->Name("statistics/by-hand")->Args({10, 100});
