#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QObject>
#include <QString>
#include <QVariantMap>

class QAudioRecorder;
class QTimer;

namespace panorel {

class MessageQueueBrocker;

/// Records from the default microphone into a file below "/tmp", and tells the page its path at the
/// end, whether or not the recording went well.
class PANOREL_EXPORT RecordAudioHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// @p brocker is not owned.
    explicit RecordAudioHandler(MessageQueueBrocker *brocker);

    /// "record.audio.request".
    QString topic() const;

    /// "start": starts a recording, which ends after "timeout" seconds (integer; default 20). One
    /// that runs already ends without an answer of its own.
    /// Then "stop": ends it now, also when none runs.
    ///
    /// Each end is answered by "record.audio.response" with "file": the path of the recording
    /// started last, empty before the first. The file is closed a moment later.
    void handle(Message message) override;

private:
    void start(const QVariantMap &attributes);
    void record();
    void sendRecordInfo();

    MessageQueueBrocker *m_brocker;
    QString m_file;
    bool m_isWaiting = false; // for the file before to be closed
    QAudioRecorder *m_recorder;
    QTimer *m_timer;
};

} // namespace panorel
