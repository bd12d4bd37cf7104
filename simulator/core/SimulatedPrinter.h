#pragma once

#include "host/IPrinter.h"
#include "simulator/core/Pace.h"

#include <QByteArray>
#include <QList>
#include <QTimer>

namespace simulator {

/// The badge printer: it keeps what it printed and runs out of paper. GUI thread.
class SimulatedPrinter : public IPrinter
{
    Q_OBJECT

public:
    explicit SimulatedPrinter(const Pace &pace, QObject *parent = nullptr);

    bool isConnected() override;
    /// Takes @p file when it is a readable PNG picture, the printer is connected and has paper for
    /// it. Pictures that come while one is printed wait their turn.
    bool print(const QString &file) override;

    /// Unplugs the printer or plugs it in again. What it was printing is lost.
    void setConnected(bool connected);
    /// Lays @p sheets into the tray. Ends a lack of paper.
    void setPaper(int sheets);
    int paper() const;
    /// Reports an error of the printer's; it lasts until clearError().
    void injectError(int code, const QString &text);
    void clearError();

    PrinterState state() const;
    /// The printed pictures, the oldest first.
    QList<QByteArray> prints() const;

    /// How long one picture takes, in milliseconds of the robot's time.
    void setPrintTime(int milliseconds);
    /// From this number of sheets on, the printer reports that paper is low.
    void setLowPaper(int sheets);

Q_SIGNALS:
    void printed(const QByteArray &picture);

private:
    void printNext();
    void onPrinted();
    void reportPaper();
    void setState(PrinterState state);

    Pace m_pace;
    QTimer m_timer;
    QList<QByteArray> m_waiting; // the first one is being printed
    QList<QByteArray> m_prints;
    PrinterState m_state = PrinterState::Idle;
    bool m_connected = true;
    int m_paper = 50;
    int m_lowPaper = 5;
    int m_printTime = 1500;
};

} // namespace simulator
