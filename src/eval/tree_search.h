#pragma once

#include "semantic/env.h"

namespace tarn {

class Symbol;
class Tree;

/// Searches in attributed trees by place.
namespace eval {

/// The innermost environment that holds the line, from `tree` down; `env` is the one around `tree`. Null if that is null
/// and nothing below it holds the line, or if the line belongs to a method without a body.
///
/// Only where a construct starts is looked at: what lies behind the last statement of a block counts as inside of it.
Env* walk(Tree* tree, Env* env, int line);

/// The symbol whose name stands at the position; null if there is none. `tree` may be null.
Symbol* find(Tree* tree, int position);

} // namespace eval
} // namespace tarn
