#include "simulator/core/ShellCommand.h"

#include <QProcess>

#include <signal.h>
#include <sys/types.h>
#include <unistd.h>

namespace simulator {

namespace {

/// A process that leads a group of its own, so that its children can be killed with it.
class GroupLeader : public QProcess
{
protected:
    // Runs in the child, between fork and exec.
    void setupChildProcess() override { ::setpgid(0, 0); }
};

} // namespace

ShellCommand::ShellCommand(const QString &command)
    : m_command(command)
{ }

QString ShellCommand::run(int timeLimit) const
{
    GroupLeader shell;
    shell.setStandardInputFile(QProcess::nullDevice());
    // Errors go to this program's own, and cannot fill a pipe that nobody reads.
    shell.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), m_command});
    if (!shell.waitForStarted(timeLimit))
        return {};

    const auto group = static_cast<pid_t>(shell.processId());
    if (!shell.waitForFinished(timeLimit) && shell.state() != QProcess::NotRunning) {
        ::kill(-group, SIGKILL);
        shell.waitForFinished(-1);
    }
    return QString::fromUtf8(shell.readAllStandardOutput());
}

} // namespace simulator
