#include "tests/support/SoundServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLocalSocket>

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int startTimeout = 20000;

bool takesConnections(const QString &socket)
{
    QLocalSocket connection;
    connection.connectToServer(socket);
    return connection.waitForConnected(1000);
}

} // namespace

SoundServer::SoundServer()
{
    const QString socket = m_folder.filePath(QStringLiteral("native"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_folder.path());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(
        QStringLiteral("pulseaudio"),
        {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
         QStringLiteral("--use-pid-file=no"), QStringLiteral("--exit-idle-time=-1"),
         QStringLiteral("-L"), QStringLiteral("module-null-sink sink_name=robot"),
         QStringLiteral("-L"),
         QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket});

    QElapsedTimer time;
    time.start();
    while (!takesConnections(socket)) {
        if (m_process.waitForFinished(50) || time.hasExpired(startTimeout)) {
            m_error = m_process.errorString() + QLatin1Char('\n')
                + QString::fromLocal8Bit(m_process.readAll());
            return;
        }
    }
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket));
}

SoundServer::~SoundServer()
{
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        m_process.kill();
    m_process.waitForFinished();
}

bool SoundServer::isRunning() const { return m_error.isEmpty(); }

QString SoundServer::error() const { return m_error; }

void SoundServer::Process::setupChildProcess() { prctl(PR_SET_PDEATHSIG, SIGKILL); }
