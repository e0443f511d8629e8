#include "syntax/tree_factory.h"

#include "driver/reporter.h"

namespace tarn {

void TreeFactory::reportTooDeep(int pos) {
    if (!tooDeepReported_) reportError(pos, messages::nestingTooDeep);
    tooDeepReported_ = true;
}

} // namespace tarn
