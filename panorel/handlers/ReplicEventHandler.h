#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class KarvelDialogModule;
class PluginInterface;
class Replica;

namespace panorel {

class ReplicContext;

/// Lets the page drive the robot's speech: say a text, play a replica, report an answer. Never
/// replies.
class PANOREL_EXPORT ReplicEventHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    ReplicEventHandler(ReplicContext *context, PluginInterface *plugin, KarvelDialogModule *dialog);

    /// "dialog.say".
    QString topic() const;

    /// Does what is present, in this order: "macroses" (name to value) are lent for the turn; "text"
    /// is spoken, unless empty; "step" asks the host for a replica, with "category", "use_general",
    /// "use_biometry" and "face", and plays it; "replica" is played; "answer" is reported to the
    /// dialog engine. "terminate" (true when absent) goes with everything that is spoken or played.
    void handle(Message message) override;

private:
    void lendMacros(const QVariantMap &macros);
    void speak(const QString &text, bool terminate);
    void playStep(const QVariantMap &attributes, bool terminate);
    void playReplica(const QVariantMap &attributes, bool terminate);
    void reportAnswer(const QVariantMap &attributes);
    void play(const QSharedPointer<Replica> &replica, bool terminate);

    ReplicContext *m_context;
    PluginInterface *m_plugin;
    KarvelDialogModule *m_dialog;
};

} // namespace panorel
