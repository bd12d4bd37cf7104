// The widget's header must have taken the platform's records, not the ones of the tree.

#include "panorel/Panorel.h"

#ifndef PLATFORM_DRIVE_MODE
#error "panorel/Panorel.h includes the tree's own host/DriveMode.h"
#endif

int main() { return panorel::Message(QStringLiteral("x")).type() == QStringLiteral("x") ? 0 : 1; }
