#include "host/KarvelDialogModule.h"

KarvelDialogModule::KarvelDialogModule(QObject *parent)
    : QObject(parent)
{ }

KarvelDialogModule::~KarvelDialogModule() = default;
