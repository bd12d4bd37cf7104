#pragma once

#include <QtCore/QtGlobal>

/// Marks what the library exports; everything else stays hidden.
#if defined(PANOREL_LIBRARY)
#define PANOREL_EXPORT Q_DECL_EXPORT
#else
#define PANOREL_EXPORT Q_DECL_IMPORT
#endif
