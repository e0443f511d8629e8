#pragma once

#include "eval/host_compiler.h"
#include "unit/codegen/pipeline.h"

#include <string>
#include <string_view>

namespace tarn {

/// A host with a class path in memory that has what expressions need, and with one source.
class EvaluationTest : public PipelineTest {
protected:
    EvaluationTest();

    /// The text of a source; a change gives it another date.
    void setSource(std::string_view text);
    /// The failure text, or "" if a class file was made, which is in `output` then.
    std::string evaluate(int line, std::string_view expression);
    HostCompiler host;
    std::shared_ptr<ByteArrayStore> source = ByteArrayStore::root("Subject.java");
    std::shared_ptr<ByteArrayStore> file = ByteArrayStore::root("Expression.class");
};

} // namespace tarn
