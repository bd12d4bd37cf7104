#include "panorel/Logging.h"

namespace panorel {

Q_LOGGING_CATEGORY(lcPanorel, "panorel")

} // namespace panorel
