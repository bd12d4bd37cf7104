#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include "host/FaceInfo.h"
#include "host/FaceRect.h"

#include <QVector>

class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Lets a user choose a face by touching it: remembers the rectangles and faces that the robot core
/// reported last, and finds the faces under the page's touch.
class PANOREL_EXPORT GeneralTouchHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    GeneralTouchHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "system.general.touch".
    QString topic() const;

    /// From the widget: "rect" or "info", the vectors to remember. From the page: "x" and "y", the
    /// touch in the rectangles' coordinates; without both nothing happens. Each rectangle under
    /// the touch makes the host track its face; each face of that track id is answered by
    /// "system.general.setted" with "setted_id", the person's id.
    void handle(Message message) override;

private:
    void touch(double x, double y);
    void select(const FaceRect &rect);

    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
    QVector<FaceRectPtr> m_rects;
    QVector<FaceInfoPtr> m_faces;
};

} // namespace panorel
