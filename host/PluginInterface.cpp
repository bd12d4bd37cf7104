#include "host/PluginInterface.h"

PluginInterface::PluginInterface(QObject *parent)
    : QObject(parent)
{ }

PluginInterface::~PluginInterface() = default;
