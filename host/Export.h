#pragma once

#include <QtCore/QtGlobal>

/// Marks what the host library exports, and the services that a robot core defines for it.
#if defined(PANOREL_HOST_LIBRARY)
#define PANOREL_HOST_EXPORT Q_DECL_EXPORT
#else
#define PANOREL_HOST_EXPORT Q_DECL_IMPORT
#endif
