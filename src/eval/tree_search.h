#pragma once

#include "semantic/env.h"

namespace tarn {

class CompilationUnit;
class Symbol;
class Tree;

/// Searches in attributed trees by place.
namespace eval {

/// The innermost environment that holds the line, from `tree` down; `env` is the one around `tree`. Null if that is
/// null and nothing below it holds the line, or if the line belongs to a method without a body.
///
/// Only where a construct starts is looked at: what lies behind the last statement of a block counts as inside of it.
Env* walk(Tree* tree, Env* env, int line);

/// The innermost environment of the unit that holds the line: the one that `walk` finds, or if it stands in an
/// anonymous class, the one in that. The first line of its body belongs to the statement around it.
Env* envAt(CompilationUnit* unit, int line);

/// The symbol whose name stands at the position; null if there is none. `tree` may be null.
Symbol* find(Tree* tree, int position);

} // namespace eval
} // namespace tarn
