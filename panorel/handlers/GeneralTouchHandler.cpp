#include "panorel/handlers/GeneralTouchHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/PluginInterface.h"

#include <QDebug>

namespace panorel {

GeneralTouchHandler::GeneralTouchHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{ }

QString GeneralTouchHandler::topic() const { return constants::GENERAL_TOUCH; }

void GeneralTouchHandler::handle(Message message)
{
    const QVariantMap attributes = message.attributes();
    const auto end = attributes.constEnd();

    // Reports of the robot come many times a second: they are not logged. A value of another type,
    // as a page might send it, gives an empty vector.
    const auto rects = attributes.constFind(QStringLiteral("rect"));
    if (rects != end) {
        m_rects = rects->value<QVector<FaceRectPtr>>();
        return;
    }
    const auto faces = attributes.constFind(QStringLiteral("info"));
    if (faces != end) {
        m_faces = faces->value<QVector<FaceInfoPtr>>();
        return;
    }

    qCDebug(lcPanorel) << "GeneralTouchHandler" << message.toJson();
    const auto x = attributes.constFind(QStringLiteral("x"));
    const auto y = attributes.constFind(QStringLiteral("y"));
    if (x == end || y == end)
        return; // no point to look at: dropped
    touch(x->toDouble(), y->toDouble());
}

void GeneralTouchHandler::touch(double x, double y)
{
    // A copy: what a selection sets off may report new rectangles.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QVector<FaceRectPtr> rects = m_rects;
    for (const FaceRectPtr &rect : rects) {
        if (!rect)
            continue;
        const QRectF area = rect->rect();
        qDebug() << "rect" << area.topLeft() << area.bottomRight();
        if (area.contains(x, y))
            select(*rect);
    }
}

void GeneralTouchHandler::select(const FaceRect &rect)
{
    const long long idTrack = rect.idTrack();
    qCDebug(lcPanorel) << "SUCCESS SELECT" << idTrack;

    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QVector<FaceInfoPtr> faces = m_faces;
    for (const FaceInfoPtr &face : faces) {
        if (face && static_cast<long long>(face->idTrack()) == idTrack) {
            m_brocker->publish(
                Message(constants::GENERAL_SETTED, {{QStringLiteral("setted_id"), face->id()}}));
        }
    }
    if (m_plugin)
        Q_EMIT m_plugin->signalFaceTracking(idTrack);
}

} // namespace panorel
