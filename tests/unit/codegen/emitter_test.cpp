#include "codegen/emitter.h"

#include "codegen/item.h"
#include "recording_reporter.h"
#include "semantic/context.h"
#include "syntax/position.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarn {
namespace {

/// A static method whose code the test emits by itself.
class EmitterTest : public testing::Test {
protected:
    EmitterTest() {
        c = context_.newClass(flag::PUBLIC, Name::fromBytes("C"), context_.rootPackage);
        method.init(flag::STATIC, MTH, Name::fromBytes("m"), context_.methodType({}, context_.voidType, nullptr), c);
        out.startClass(c, &pool);
        start(false);
    }
    ~EmitterTest() override { out.endClass(); }

    void start(bool fatcode, bool debugInfo = false) {
        context_.options.debugInfo = debugInfo;
        out.startCode(&method, fatcode);
        out.entryPoint(0, Bits(), Bits());
    }

    [[nodiscard]] std::vector<int> bytes(int from = 0) const {
        return {out.code->bytes.begin() + from, out.code->bytes.begin() + out.code->cp};
    }

    /// A declared local of that name.
    VarSymbol* variable(const char* name, Type* type, std::uint32_t flags = 0) {
        auto* v = context_.arena.make<VarSymbol>();
        v->init(flags, VAR, Name::fromBytes(name), type, &method);
        v->adr = out.newLocal(type);
        out.addVarChecked(v);
        out.declared(v->adr);
        return v;
    }

    void nops(int count) {
        for (int i = 0; i < count; i++) out.emitop(op::NOP);
    }

    /// A conditional jump on a constant, which leaves an empty stack.
    Chain* test() {
        out.emitop(op::ICONST_0);
        return out.branch(op::IFEQ);
    }

    Context context_;
    RecordingReporter reporter;
    Emitter& out = emitter();
    ConstantPool pool;
    ClassSymbol* c = nullptr;
    MethodSymbol method;
};

TEST_F(EmitterTest, JumpTooFarFor16BitsAsksForAWideBody) {
    Chain* near = test();
    nops(32767 - 3);
    out.resolve(near);
    EXPECT_FALSE(out.code->fatcode);
    EXPECT_EQ(bytes(1)[1], 0x7f);
    EXPECT_EQ(bytes(1)[2], 0xff);

    start(false);
    Chain* far = test();
    nops(32768 - 3);
    out.resolve(far);
    EXPECT_TRUE(out.code->fatcode);
}

TEST_F(EmitterTest, LaterLineMarkAtTheSamePcWins) {
    out.statBegin(makePosition(10, 1));
    out.statBegin(makePosition(11, 1));
    out.emitop(op::NOP);
    out.statBegin(makePosition(11, 9));
    out.emitop(op::NOP);
    out.statBegin(makePosition(100'000, 1));
    EXPECT_EQ(out.code->lineCount, 3);
    EXPECT_EQ(out.code->lineStart, (std::vector<std::uint16_t>{0, 1, 2}));
    EXPECT_EQ(out.code->lineNumber, (std::vector<std::uint16_t>{11, 11, 0xffff}));
}

TEST_F(EmitterTest, VariableRangesCoverTheStretchesWithAValue) {
    start(false, true);
    VarSymbol* x = variable("x", context_.intType);
    nops(2);
    out.assigned(x->adr); // at 2
    nops(3);
    out.declared(x->adr); // at 5
    out.assigned(x->adr); // at once: no gap
    nops(1);
    out.declared(x->adr); // at 6
    nops(1);
    out.assigned(x->adr); // at 7
    nops(2);
    out.endScopes(0); // at 9
    EXPECT_EQ(out.code->varCount, 2);
    EXPECT_EQ(out.code->varStart, (std::vector<std::uint16_t>{2, 7}));
    EXPECT_EQ(out.code->varEnd, (std::vector<std::uint16_t>{6, 9}));

    start(false, false);
    x = variable("x", context_.intType);
    out.assigned(x->adr);
    nops(1);
    out.endScopes(0);
    EXPECT_EQ(out.code->varCount, 0);
}

} // namespace
} // namespace tarn
