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
    /// Takes @p file when it is a readable PNG picture, the printer is connected, has no error and
    /// has paper for it. Pictures that come while one is printed wait their turn.
    bool print(const QString &file) override;

    /// Unplugs the printer or plugs it in again. What it was printing is lost.
    void setConnected(bool connected);
    /// Lays @p sheets into the tray. Ends a lack of paper.
    void setPaper(int sheets);
    int paper() const;
    /// Reports an error of the printer's; it lasts until clearError(). Code 2, low paper, keeps
    /// nothing from being printed. An unplugged printer reports it when it is plugged in again.
    void injectError(int code, const QString &text);
    void clearError();
    /// The printer takes no picture, as if it could not print it, and reports nothing else.
    void setRefusing(bool refusing);
    bool isRefusing() const;

    PrinterState state() const;
    /// The error reported last; of meaning while the state is Error.
    int errorCode() const;
    QString errorText() const;
    /// The last 50 printed pictures, the oldest first.
    QList<QByteArray> prints() const;
    /// How many pictures were printed since the printer was made.
    int printCount() const;

    /// How long one picture takes, in milliseconds of the robot's time.
    void setPrintTime(int milliseconds);
    /// From this number of sheets on, the printer reports that paper is low; the sheets in the tray
    /// are judged anew.
    void setLowPaper(int sheets);
    int lowPaper() const;

Q_SIGNALS:
    void paperChanged(int sheets);
    void lowPaperChanged(int sheets);
    void refusingChanged(bool refusing);
    void printed(const QByteArray &picture);

private:
    void printNext();
    void onPrinted();
    void becomeIdle();
    void reportPaper();
    void reportError(int code, const QString &text);
    void setState(PrinterState state);

    Pace m_pace;
    QTimer m_timer;
    QList<QByteArray> m_waiting; // the first one is being printed
    QList<QByteArray> m_prints;
    PrinterState m_state = PrinterState::Idle;
    bool m_connected = true;
    bool m_refusing = false;
    bool m_hasInjectedError = false;
    int m_injectedCode = 0;
    QString m_injectedText;
    int m_errorCode = 0;
    QString m_errorText;
    int m_printCount = 0;
    int m_paper = 50;
    int m_lowPaper = 5;
    int m_printTime = 1500;
};

} // namespace simulator
