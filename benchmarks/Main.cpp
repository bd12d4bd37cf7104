// The main function of benchmarks that need no window.

#include <QLoggingCategory>

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
