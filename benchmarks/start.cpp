// What the screen's start costs, beside that of a bare view with a web channel: the time until it
// can be told to load a page, and the memory once a page is there.
//
// Each start is a process of its own: this program calls itself with the name of what to start.

#include "panorel/Panorel.h"
#include "simulator/core/RobotCore.h"

#include <QApplication>
#include <QAudioRecorder>
#include <QElapsedTimer>
#include <QFile>
#include <QGridLayout>
#include <QLoggingCategory>
#include <QMediaPlayer>
#include <QProcess>
#include <QTextStream>
#include <QTimer>
#include <QWebChannel>
#include <QWebEngineView>

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>

namespace {

const QString startOption = QStringLiteral("--start");

/// A view that fills its window, with a channel on which one object is found.
std::unique_ptr<QWidget> makeBareScreen()
{
    auto screen = std::make_unique<QWidget>();
    auto *view = new QWebEngineView(screen.get());
    auto *channel = new QWebChannel(view->page());
    view->page()->setWebChannel(channel);
    channel->registerObject(QStringLiteral("_karvel_internal"), new QObject(screen.get()));
    auto *layout = new QGridLayout(screen.get());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    return screen;
}

/// With what two of the library's handlers hold from the beginning.
std::unique_ptr<QWidget> makeScreenWithSound()
{
    auto screen = makeBareScreen();
    new QMediaPlayer(screen.get());
    new QAudioRecorder(screen.get());
    return screen;
}

std::unique_ptr<QWidget> makePanorel(const simulator::RobotCore &robot)
{
    auto screen = std::make_unique<panorel::Panorel>();
    screen->defaultHandlers(robot.plugin(), robot.dialog());
    return screen;
}

/// This process's own memory, shared pages by their share.
qint64 kibibytesOfMemory()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Pss:"))
            return line.simplified().split(' ').at(1).toLongLong();
    }
    qFatal("%s holds no Pss", qPrintable(file.fileName()));
}

/// Prints nanoseconds and kibibytes.
int start(const QString &name)
{
    // The robot core is there in any case.
    const simulator::RobotCore robot;
    QElapsedTimer timer;
    timer.start();
    std::unique_ptr<QWidget> screen;
    if (name == QStringLiteral("bare"))
        screen = makeBareScreen();
    else if (name == QStringLiteral("bare-with-sound"))
        screen = makeScreenWithSound();
    else
        screen = makePanorel(robot);
    const qint64 nanoseconds = timer.nsecsElapsed();

    auto *view = screen->findChild<QWebEngineView *>();
    screen->resize(1280, 800);
    screen->show();
    QObject::connect(view, &QWebEngineView::loadFinished, qApp, [nanoseconds] {
        // What is still on its way when the page is there comes first.
        QTimer::singleShot(500, qApp, [nanoseconds] {
            QTextStream(stdout) << nanoseconds << ' ' << kibibytesOfMemory() << '\n';
            QCoreApplication::quit();
        });
    });
    view->load(QUrl(QStringLiteral("data:text/html,<title>page</title><p>Hello")));
    return QApplication::exec();
}

void startOf(benchmark::State &state, const QString &name)
{
    double kibibytes = 0;
    for (auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {startOption, name});
        if (!process.waitForFinished(60000) || process.exitCode() != 0)
            return state.SkipWithError("the started process did not end well");
        const QList<QByteArray> figures = process.readAllStandardOutput().simplified().split(' ');
        if (figures.size() != 2)
            return state.SkipWithError("the started process told nothing");
        state.SetIterationTime(figures.at(0).toDouble() * 1e-9);
        kibibytes += figures.at(1).toDouble();
    }
    state.counters["pss_kib"] = benchmark::Counter(kibibytes, benchmark::Counter::kAvgIterations);
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    if (argc == 3 && startOption == QLatin1String(argv[1])) {
        const QApplication app(argc, argv);
        return start(QString::fromLocal8Bit(argv[2]));
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    const QCoreApplication app(argc, argv);
    for (const char *name : {"bare", "bare-with-sound", "panorel"})
        benchmark::RegisterBenchmark((std::string("start/") + name).c_str(), startOf,
                                     QString::fromLatin1(name))
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
