#pragma once

#include <QLoggingCategory>

namespace panorel {

/// The library's logging category, "panorel".
Q_DECLARE_LOGGING_CATEGORY(lcPanorel)

} // namespace panorel
