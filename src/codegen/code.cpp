#include "codegen/code.h"

#include "semantic/symbol.h"

#include <algorithm>
#include <memory>

namespace tarn {

namespace {

/// All `Code`s ever made; the first `lent` of them are in use. The process has one compile at a time.
struct CodeStock {
    std::vector<std::unique_ptr<Code>> all;
    std::size_t lent = 0;
};

CodeStock& stock() {
    static CodeStock theStock;
    return theStock;
}

constexpr std::size_t firstBytes = 64;

std::uint16_t low16(int value) {
    return static_cast<std::uint16_t>(value);
}

} // namespace

Code* Code::take(MethodSymbol* method, bool fatcode) {
    CodeStock& from = stock();
    if (from.lent == from.all.size()) from.all.push_back(std::make_unique<Code>());
    Code* code = from.all[from.lent++].get();
    code->start(method, fatcode);
    return code;
}

void Code::recycle() {
    CodeStock& from = stock();
    for (std::size_t i = 0; i < from.lent; i++) {
        MethodSymbol* owner = from.all[i]->method;
        if (owner != nullptr) owner->code = nullptr;
    }
    from.lent = 0;
}

void Code::start(MethodSymbol* forMethod, bool fat) {
    method = forMethod;
    fatcode = fat;
    nextVar = nextReg = maxStack = maxLocals = cp = 0;
    catchCount = lineCount = varCount = 0;
    registers.clear();
    if (bytes.size() < firstBytes) bytes.resize(firstBytes);
    for (auto* column :
         {&catchStart, &catchEnd, &catchHandler, &catchType, &lineStart, &lineNumber, &varRegister, &varStart, &varEnd})
        column->clear();
    varSymbols.clear();
}

void Code::addCatch(int start, int end, int handler, int type) {
    catchStart.push_back(low16(start));
    catchEnd.push_back(low16(end));
    catchHandler.push_back(low16(handler));
    catchType.push_back(low16(type));
    catchCount++;
}

void Code::markLine(int pc, int line) {
    // Lines that the table cannot tell count as the last one that it can.
    std::uint16_t shown = low16(std::min(line, 0xffff));
    if (lineCount > 0 && lineStart.back() == low16(pc)) {
        lineNumber.back() = shown;
        return;
    }
    lineStart.push_back(low16(pc));
    lineNumber.push_back(shown);
    lineCount++;
}

void Code::addLocalVar(VarSymbol* symbol, int start, int end) {
    if (start == end) return;
    varRegister.push_back(low16(registerOf(symbol->adr)));
    varStart.push_back(low16(start));
    varEnd.push_back(low16(end));
    varSymbols.push_back(symbol);
    varCount++;
}

} // namespace tarn
