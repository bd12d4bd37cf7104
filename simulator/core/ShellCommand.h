#pragma once

#include <QString>

namespace simulator {

/// One command for the shell, which may take a limited time. May be used on any thread.
class ShellCommand
{
public:
    explicit ShellCommand(const QString &command);

    /// Runs the command and returns its standard output, unaltered. Blocks until it has ended, at
    /// most @p timeLimit real milliseconds: then the shell and what it started are killed and the
    /// output so far is returned.
    QString run(int timeLimit) const;

private:
    QString m_command;
};

} // namespace simulator
