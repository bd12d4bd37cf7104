#pragma once

#include <QObject>

class QSocketNotifier;

namespace simulator {

/// Turns SIGINT and SIGTERM into a regular end of the application. One object at a time.
class QuitSignals : public QObject
{
    Q_OBJECT

public:
    explicit QuitSignals(QObject *parent = nullptr);
    /// The signals have their usual effect again.
    ~QuitSignals() override;

private:
    static void onSignal(int number);

    void quit();

    // A signal handler may do little more than write to a file: the other end wakes the loop.
    static int s_writeEnd;
    int m_readEnd = -1;
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace simulator
