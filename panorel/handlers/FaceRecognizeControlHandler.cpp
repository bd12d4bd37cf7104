#include "panorel/handlers/FaceRecognizeControlHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"

#include "host/PluginInterface.h"

namespace panorel {

FaceRecognizeControlHandler::FaceRecognizeControlHandler(PluginInterface *plugin)
    : m_plugin(plugin)
{ }

QString FaceRecognizeControlHandler::topic() const { return constants::FACE_RECOGNIZE_CONTROL; }

void FaceRecognizeControlHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "FaceRecognizeControlHandler" << message.toJson();

    if (!m_plugin)
        return; // no robot behind the page: dropped

    const QVariantMap attributes = message.attributes();
    const auto end = attributes.constEnd();
    const auto trackingAuto = attributes.constFind(QStringLiteral("tracking_auto"));
    if (trackingAuto != end)
        Q_EMIT m_plugin->signalFaceTrackingAuto(trackingAuto->toBool());
    const auto trackingFace = attributes.constFind(QStringLiteral("tracking_face"));
    if (trackingFace != end)
        Q_EMIT m_plugin->signalFaceTracking(toInt64(*trackingFace));
    const auto addFace = attributes.constFind(QStringLiteral("add_face"));
    if (addFace != end)
        Q_EMIT m_plugin->signalFaceAdd(toInt64(*addFace));
    const auto deleteFace = attributes.constFind(QStringLiteral("del_face"));
    if (deleteFace != end)
        Q_EMIT m_plugin->signalFaceDelete(toInt64(*deleteFace));
    const auto headEnabled = attributes.constFind(QStringLiteral("head_enabled"));
    if (headEnabled != end)
        Q_EMIT m_plugin->signalHeadEnable(headEnabled->toBool());
}

} // namespace panorel
