#include "host/IMacrosReplacer.h"

IMacrosReplacer::IMacrosReplacer(QObject *parent)
    : QObject(parent)
{ }

IMacrosReplacer::~IMacrosReplacer() = default;
