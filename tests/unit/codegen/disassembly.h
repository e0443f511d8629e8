#pragma once

#include "store/store.h"

#include <map>
#include <string>
#include <vector>

namespace tarn {

/// One method of a class file, as text.
struct Disassembly {
    std::string code;     ///< "iload_0, ifeq 8, ..." with absolute targets; pool entries as what they stand for
    std::string handlers; ///< "0-4 6 any, ..." (from-to, handler, type)
    std::string lines;    ///< "0:12, ..." (pc, line)
    std::string locals;   ///< "x 2-6 r0, ..." (name, from-to, register), by start
    int maxStack = 0;
    int maxLocals = 0;
};

/// The methods that have code, by name. Reads by its own tables, made from the JVM specification; throws
/// std::runtime_error on what is no class file.
std::map<std::string, Disassembly> disassemble(const Bytes& classFile);

/// The names of the methods, in the file's order.
std::vector<std::string> methodNames(const Bytes& classFile);

} // namespace tarn
