#pragma once

#include "host/CallState.h"
#include "host/Export.h"

#include <QObject>
#include <QString>
#include <QUuid>

/// The robot core's telephone. The host library holds only its meta-object; the robot core
/// defines the constructor, the destructor and every operation. Lives on the GUI thread. Deleted with
/// the handler that made it, so a slot of the core's own must not have the handlers built anew.
class PANOREL_HOST_EXPORT SIPMaster : public QObject
{
    Q_OBJECT

public:
    explicit SIPMaster(QObject *parent = nullptr);
    ~SIPMaster() override;

    /// Starts an ordinary call. Returns whether it was started.
    bool callToNumber(const QString &number);
    /// Queues a call that plays the sound file at path @p file. Returns the queued call's id.
    /// @p recallCount is how often to call again when nobody answers.
    QUuid playFileToNumber(const QString &file, const QString &number, const int &recallCount);
    /// Queues a call that speaks @p text. Otherwise like playFileToNumber.
    QUuid playTextToNumber(const QString &text, const QString &number, const int &recallCount);
    /// Drops every queued call.
    void clearQueue();
    /// Hangs up the current call.
    void stopCall();

Q_SIGNALS:
    /// How the queued call @p id ended.
    void signalHiddenCallResult(const QUuid &id, const bool &success);
    /// Progress of the ordinary call.
    void signalPublicCallState(const CallState &state);
    /// A key that the called party pressed.
    void signalTone(const int &tone);

private:
    struct Private;
    Private *d;
};
