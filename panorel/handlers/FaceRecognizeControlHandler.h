#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class PluginInterface;

namespace panorel {

/// Passes the page's commands to the face recognition. Never replies.
class PANOREL_EXPORT FaceRecognizeControlHandler : public MessageHandler
{
public:
    /// @p plugin is not owned.
    explicit FaceRecognizeControlHandler(PluginInterface *plugin);

    /// "face.recognize.control".
    QString topic() const;

    /// Does what is present, in this order: "tracking_auto" (bool), "tracking_face" (track id),
    /// "add_face" and "del_face" (face ids), "head_enabled" (bool). Ids have 64 bits.
    void handle(Message message) override;

private:
    PluginInterface *m_plugin;
};

} // namespace panorel
