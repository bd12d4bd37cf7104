#pragma once

class KarvelDialogModule;
class PluginInterface;
class QObject;

namespace panorel {
class MessageQueueBrocker;
class PanorelProxy;
class ReplicContext;
} // namespace panorel

/// What handlers are made with; nothing is owned.
struct HandlerParts
{
    PluginInterface *plugin;
    KarvelDialogModule *dialog;
    panorel::MessageQueueBrocker *bus;
    panorel::ReplicContext *context;
    panorel::PanorelProxy *proxy;
};

/// Handlers that own something which signals by itself.
struct HandlerSet
{
    QObject *play;
    QObject *record;
};

/// Subscribes the library's handlers in the widget's order, each of which is counted.
HandlerSet subscribeHandlers(const HandlerParts &parts);

/// How many of them live now, of all sets.
int liveHandlers();
constexpr int handlersOfASet = 27;
