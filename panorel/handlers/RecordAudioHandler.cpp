#include "panorel/handlers/RecordAudioHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include <QAudioEncoderSettings>
#include <QAudioRecorder>
#include <QDateTime>
#include <QLocale>
#include <QTimer>
#include <QUrl>

#include <limits>

namespace panorel {

namespace {

constexpr int defaultSeconds = 20;

// The page may name any number of seconds; a timer holds some 24 days.
int milliseconds(const QVariant &seconds)
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int mostSeconds = most / 1000;
    if (seconds.toDouble() > mostSeconds)
        return most;
    return static_cast<int>(qMax(0LL, toInt64(seconds)) * 1000);
}

QAudioEncoderSettings encoderSettings()
{
    QAudioEncoderSettings settings;
    settings.setCodec(QStringLiteral("audio/x-flac"));
    settings.setQuality(QMultimedia::HighQuality);
    return settings;
}

// FLAC in a file that ends in ".wav": kept so, pages know the name.
QString newFile()
{
    const QString time = QLocale::c().toString(QDateTime::currentDateTime(),
                                               QStringLiteral("yyyy-MM-dd_hh:mm:ss.zzz"));
    return QStringLiteral("/tmp/record_%1.wav").arg(time);
}

} // namespace

RecordAudioHandler::RecordAudioHandler(MessageQueueBrocker *brocker)
    : m_brocker(brocker)
    , m_recorder(new QAudioRecorder(this))
    , m_timer(new QTimer(this))
{
    qCDebug(lcPanorel) << "FORMATS" << m_recorder->supportedAudioCodecs();
    m_recorder->setEncodingSettings(encoderSettings());
    m_recorder->setOutputLocation(QUrl::fromLocalFile(m_file));
    m_timer->setSingleShot(true);
    connect(m_recorder, &QMediaRecorder::statusChanged, this, &RecordAudioHandler::record);
    connect(m_timer, &QTimer::timeout, this, &RecordAudioHandler::sendRecordInfo);
}

QString RecordAudioHandler::topic() const { return constants::RECORD_AUDIO_REQUEST; }

void RecordAudioHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "RecordAudioHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    if (attributes.contains(QStringLiteral("start")))
        start(attributes);
    if (attributes.contains(QStringLiteral("stop"))) {
        m_timer->stop();
        sendRecordInfo();
    }
}

void RecordAudioHandler::start(const QVariantMap &attributes)
{
    m_recorder->stop(); // what runs ends in its own file
    m_file = newFile();
    m_isWaiting = true;
    record();
    m_timer->start(milliseconds(attributes.value(QStringLiteral("timeout"), defaultSeconds)));
}

// The recorder writes to the file before until that is closed, wherever its output location points.
void RecordAudioHandler::record()
{
    if (!m_isWaiting || isRetired() || m_recorder->status() == QMediaRecorder::FinalizingStatus)
        return;
    m_isWaiting = false;
    m_recorder->setOutputLocation(QUrl::fromLocalFile(m_file));
    m_recorder->record();
}

void RecordAudioHandler::sendRecordInfo()
{
    m_isWaiting = false;
    m_recorder->stop();
    if (isRetired())
        return; // the page records through the successor
    m_brocker->publish(
        Message(constants::RECORD_AUDIO_RESPONSE, {{QStringLiteral("file"), m_file}}));
}

} // namespace panorel
