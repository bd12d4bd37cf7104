// Drives a fuzz target without libFuzzer: PROGRAM [--seconds N] FILE|FOLDER... tries each file, then
// random changes of them for N seconds, the same ones each time. The input of a finding is kept in the
// working folder.

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QVector>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>

#include <fcntl.h>
#include <unistd.h>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
// There when a sanitizer is. NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

constexpr unsigned secondsForAnInput = 60; // with sanitizers, on a busy machine
constexpr int longest = 4096;

// Made by main() and never deleted: a signal may come at the very end.
QByteArray *current = nullptr;
QByteArray *findingFile = nullptr;

/// Only what a signal handler may call.
void keepFinding()
{
    const int file = open(findingFile->constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (file < 0)
        return;
    const ssize_t written =
        write(file, current->constData(), static_cast<std::size_t>(current->size()));
    close(file);
    constexpr char message[] = "\nThe input is kept in ";
    if (written < 0 || write(STDERR_FILENO, message, sizeof message - 1) < 0
        || write(STDERR_FILENO, findingFile->constData(),
                 static_cast<std::size_t>(findingFile->size()))
            < 0
        || write(STDERR_FILENO, "\n", 1) < 0)
        return;
}

void onSignal(int number)
{
    keepFinding();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

void tryInput(const QByteArray &input)
{
    *current = input;
    alarm(secondsForAnInput); // a hang is a finding
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(current->constData()),
                           static_cast<std::size_t>(current->size()));
    alarm(0);
}

/// Draws changes of inputs.
class Changer
{
public:
    explicit Changer(const QVector<QByteArray> &inputs)
        : m_inputs(inputs)
    { }

    QByteArray draw()
    {
        QByteArray input = oneInput();
        for (int count = 1 + below(6); count > 0; --count)
            change(&input);
        return input.left(longest);
    }

private:
    int below(int end) { return end <= 0 ? 0 : static_cast<int>(m_dice() % unsigned(end)); }
    char byte() { return static_cast<char>(below(256)); }
    QByteArray oneInput()
    {
        return m_inputs.isEmpty() ? QByteArray() : m_inputs.at(below(m_inputs.size()));
    }

    void change(QByteArray *input)
    {
        const int at = below(input->size());
        switch (below(6)) {
        case 0:
            for (int count = 1 + below(16); count > 0; --count)
                input->insert(at, byte());
            return;
        case 1:
            input->remove(at, 1 + below(32));
            return;
        case 2: {
            const QByteArray other = oneInput();
            const int from = below(other.size());
            input->insert(at, other.mid(from, 1 + below(64)));
            return;
        }
        case 3:
            input->append(byte());
            return;
        default:
            if (!input->isEmpty())
                (*input)[at] =
                    below(2) == 0 ? byte() : static_cast<char>(input->at(at) ^ 1 << below(8));
        }
    }

    const QVector<QByteArray> m_inputs;
    std::mt19937 m_dice{20260};
};

QStringList filesOf(const QString &path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    const QDir folder(path);
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names)
        files.append(folder.filePath(name));
    return files;
}

[[noreturn]] void fail(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    std::exit(2);
}

} // namespace

int main(int argc, char **argv)
{
    int seconds = 0;
    QVector<QByteArray> inputs;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument == QLatin1String("--seconds")) {
            bool isNumber = false;
            seconds = QByteArray(++i < argc ? argv[i] : "").toInt(&isNumber);
            if (!isNumber || seconds < 0)
                fail(QStringLiteral("--seconds needs a number of seconds."));
            continue;
        }
        const QStringList paths = filesOf(argument);
        for (const QString &path : paths) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                fail(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
            inputs.append(file.readAll());
        }
    }

    current = new QByteArray;
    findingFile =
        new QByteArray(QDir::current()
                           .filePath(QStringLiteral("finding-")
                                     + QFileInfo(QString::fromLocal8Bit(argv[0])).fileName())
                           .toLocal8Bit());
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(keepFinding);
    for (const int number : {SIGABRT, SIGALRM, SIGSEGV, SIGFPE, SIGBUS, SIGILL})
        std::signal(number, onSignal);

    LLVMFuzzerInitialize(&argc, &argv);
    for (const QByteArray &input : qAsConst(inputs))
        tryInput(input);
    const int replayed = inputs.size();

    Changer changer(inputs);
    QElapsedTimer timer;
    timer.start();
    long tried = 0;
    for (; timer.elapsed() < qint64{seconds} * 1000; ++tried)
        tryInput(changer.draw());
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(nullptr); // a leak is no single input's
    std::printf("%d files replayed, %ld new inputs tried in %d seconds\n", replayed, tried,
                seconds);
    return 0;
}
