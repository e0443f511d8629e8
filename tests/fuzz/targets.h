#pragma once

#include "corpus.h"
#include "random.h"

#include <span>
#include <string>
#include <string_view>

namespace tarn::fuzz {

/// One kind of hostile input. `run` makes one input of it and feeds it to the compiler; what it throws is a fault.
struct Target {
    std::string_view name;
    void (*run)(const Corpus& corpus, Random& random);
};

std::span<const Target> targets();

/// The one that has a file of its own.
void runDependencies(const Corpus& corpus, Random& random);

/// If not empty, each input is written below this folder before it is used.
extern std::string saveFolder;
/// Does that.
void save(const std::vector<File>& files);

/// A program that compiles, so that a mutation of it may get far.
const Program& goodProgram(const Corpus& corpus, Random& random);

} // namespace tarn::fuzz
