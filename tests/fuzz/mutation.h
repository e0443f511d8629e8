#pragma once

#include "random.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::fuzz {

/// A file of the corpus, or what a mutation has made of it.
struct File {
    std::string name; ///< with directories
    std::string text; ///< any bytes
};

/// Changes bytes: flips, overwrites, inserts, doubles, removes and cuts, a few of them at once.
void mutateBytes(Random& random, std::string& text);

/// Changes a source by its tokens: drops, doubles, swaps and replaces them, puts whole bracketed groups in the place of
/// others, and nests expressions and statements. The parts that are put in come from the file itself or from `others`.
/// Most results still parse, so that the later phases get their share.
void mutateTokens(Random& random, std::string& text, std::span<const File> others);

} // namespace tarn::fuzz
