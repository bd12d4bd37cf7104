#pragma once

#include "panorel/Export.h"

#include <QUuid>

namespace panorel {

/// A random UUID: version 4, variant DCE (RFC 4122), as QUuid::createUuid() gives, from
/// a block of the system's randomness that serves many.
///
/// May be called on any thread. Threads, and a process and its forked child, draw on blocks of their
/// own, so none repeats another's.
PANOREL_EXPORT QUuid randomUuid();

} // namespace panorel
