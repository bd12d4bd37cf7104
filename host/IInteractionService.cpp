#include "host/IInteractionService.h"

IInteractionService::IInteractionService(QObject *parent)
    : QObject(parent)
{ }

IInteractionService::~IInteractionService() = default;
