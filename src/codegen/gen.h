#pragma once

#include "codegen/emitter.h"
#include "codegen/item.h"
#include "syntax/tree.h"

namespace tarn {

/// What the files of code generation share. Generation itself is the operation `gen` of the trees, which emits the code
/// of the operands and gives an item for the value. A tree whose type is a constant is not visited: the constant is its
/// code.
namespace codegen {

/// `gen` of a boolean expression, as a condition.
CondItem* genCondition(Tree* tree);
/// `gen`, converted to that type and loaded, for ordinary code: what is on the stack then has that type for the
/// verifier too.
void genLoadAs(Tree* tree, Type* type);
/// The same where a value handle does as well; tells of the object that was loaded.
Origin genLoadAny(Tree* tree, Type* type);
void genStatements(Trees statements);

} // namespace codegen
} // namespace tarn
