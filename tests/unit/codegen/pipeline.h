#pragma once

#include "disassembly.h"
#include "make/compiler.h"
#include "recording_reporter.h"
#include "semantic/context.h"
#include "store/memory_store.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tarn {

/// Takes sources through the whole compiler, with a class path and an output directory in memory. The class path holds
/// just those classes and members of the library that the compiler itself or the tests speak of.
class PipelineTest : public testing::Test {
protected:
    PipelineTest();

    /// Compiles one source as `name`.java.
    void compile(std::string_view name, std::string_view text);
    /// The file below the output directory ("a/b/C.class"); null if there is none.
    StoreRef output(std::string_view path);
    /// Compiles a class A of these members and gives its methods; `others` are classes in front of it. The test fails
    /// if anything else is reported than the expected messages.
    std::map<std::string, Disassembly> methodsOf(const std::string& members,
                                                 const std::vector<std::string>& expectedMessages = {},
                                                 const std::string& others = "");

    Context context_;
    RecordingReporter reporter;
    std::shared_ptr<ByteArrayStore> path = ByteArrayStore::root("path");
    std::shared_ptr<ByteArrayStore> out = ByteArrayStore::root("out");
};

} // namespace tarn
