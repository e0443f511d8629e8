#pragma once

#include "corpus.h"
#include "random.h"

namespace tarn::fuzz {

/// Asks a host for expressions at lines of one source, and for symbols at its positions: garbled ones, and such as make
/// sense there. What compiles must be a class that can be read, and the host must serve as before at the end.
void runExpressions(const Corpus& corpus, Random& random);

} // namespace tarn::fuzz
