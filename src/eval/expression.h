#pragma once

#include "semantic/env.h"
#include "store/store.h"

#include <string>
#include <string_view>

namespace tarn {

class Arena;
struct CompileTask;

/// From the text of an expression to the class that evaluates it. What is wrong with it is reported, in the current
/// context, to a reporter that throws.
namespace eval {

/// The class of an expression: what a host asked for.
struct ClassName {
    std::string_view prefix;    ///< the package of `IExpression`, `IEvaluatorContext` and `EvalSupport`
    std::string_view className; ///< simple
};

/// Whether a class file can have that name, and no class has it that the current context knows.
bool isLegal(const ClassName& name);

/// The tree, in `arena`. Makes a store named "<expr>" the current source, and leaves it so. `expression` is in UTF-8;
/// text that is not is taken as Latin-1.
Tree* parseExpression(std::string_view expression, Arena& arena);

/// The class file of a class whose `eval` gives the value of the expression as it stands at the line, for which `env`
/// is the environment. `task` owns the expression's tree, and gets the trees of the class.
Bytes translate(const ClassName& name, Tree* tree, Env* env, int line, CompileTask& task);

} // namespace eval
} // namespace tarn
