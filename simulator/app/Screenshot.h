#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QImage;

namespace simulator {

class SimulatorWindow;

/// Writes a picture of the window, once the page shows what the robot reported.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// @p window is not owned and outlives the picture.
    Screenshot(SimulatorWindow *window, const QString &file, QObject *parent = nullptr);

    /// What keeps @p file from being written; empty when nothing does. Leaves an existing file as
    /// it is.
    static QString obstacle(const QString &file);

    /// Waits for the page, for messages in both directions and for setVisitOver(); then takes the
    /// picture.
    void start();
    void setVisitOver();

Q_SIGNALS:
    /// Comes once. @p error says what went wrong and what to do; it is empty when the picture was
    /// written.
    void finished(const QString &error);

private:
    void check();
    void giveUp();
    void finish(const QString &error);
    QString missing() const;
    QString write(const QImage &picture) const;

    SimulatorWindow *m_window;
    QString m_file;
    QTimer m_poll;
    QTimer m_limit;
    int m_readyPolls = 0;
    bool m_loaded = false;
    bool m_loadFailed = false;
    bool m_visitOver = false;
    bool m_finished = false;
};

} // namespace simulator
