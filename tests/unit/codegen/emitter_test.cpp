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

TEST_F(EmitterTest, JumpToTheNextInstructionDisappearsUnlessThePlaceIsHeld) {
    out.emitop(op::NOP);
    Chain* jump = out.branch(op::GOTO);
    EXPECT_FALSE(out.alive);
    out.resolve(jump);
    EXPECT_TRUE(out.alive);
    EXPECT_EQ(bytes(), (std::vector<int>{op::NOP}));

    jump = out.branch(op::GOTO);
    out.curPc();
    out.resolve(jump);
    EXPECT_EQ(bytes(1), (std::vector<int>{op::GOTO, 0, 3}));
}

TEST_F(EmitterTest, OfTwoJumpsToOnePlaceOnlyTheLastInstructionCanDisappear) {
    Chain* first = test();                            // 0..3
    Chain* second = out.branch(op::GOTO);             // 4..6
    out.resolve(Emitter::mergeChains(first, second)); // the goto goes first
    EXPECT_EQ(bytes(), (std::vector<int>{op::ICONST_0, op::IFEQ, 0, 3}));
}

TEST_F(EmitterTest, JumpThatOthersLeadToGoesOnAsTheirTarget) {
    Chain* around = test(); // 0..3
    out.resolve(around);    // to 4, where the goto stands
    Chain* jump = out.branch(op::GOTO);
    out.resolve(jump);
    EXPECT_EQ(bytes(), (std::vector<int>{op::ICONST_0, op::IFEQ, 0, 3}));
    EXPECT_EQ(out.code->cp, 4);
}

TEST_F(EmitterTest, BackwardJumpGetsANegativeOffset) {
    int head = out.curPc();
    nops(2);
    out.resolve(out.branch(op::GOTO), head);
    EXPECT_EQ(bytes(2), (std::vector<int>{op::GOTO, 0xff, 0xfe}));
    EXPECT_FALSE(out.alive);
}

TEST_F(EmitterTest, DeadCodeEmitsNothingAndWarnsPerStatement) {
    out.emitop(op::RETURN);
    out.statBegin(makePosition(3, 5));
    out.emitop(op::NOP);
    out.emitop1w(op::ILOAD, 300);
    out.align(4);
    EXPECT_EQ(out.branch(op::GOTO), nullptr);
    out.statBegin(makePosition(4, 5));
    EXPECT_EQ(bytes(), (std::vector<int>{op::RETURN}));
    EXPECT_EQ(reporter.said, (std::vector<std::string>{"3:5 warning: statement not reachable",
                                                       "4:5 warning: statement not reachable"}));
}

TEST_F(EmitterTest, NegationPairsOppositeConditions) {
    const int pairs[][2] = {{op::IFEQ, op::IFNE},           {op::IFLT, op::IFGE},
                            {op::IFGT, op::IFLE},           {op::IF_ICMPEQ, op::IF_ICMPNE},
                            {op::IF_ICMPLT, op::IF_ICMPGE}, {op::IF_ICMPGT, op::IF_ICMPLE},
                            {op::IF_ACMPEQ, op::IF_ACMPNE}, {ALWAYS, NEVER}};
    for (const auto& pair : pairs) {
        EXPECT_EQ(negate(pair[0]), pair[1]);
        EXPECT_EQ(negate(pair[1]), pair[0]);
    }
}

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

TEST_F(EmitterTest, WideBodyInvertsConditionsAroundALongJump) {
    start(true);
    Chain* jump = test();
    nops(70000);
    out.resolve(jump);
    // iconst_0; ifne +8; goto_w (at 4) to 1 + 3 + 5 + 70000, which is 70005 or 0x11175 from there
    std::vector<int> code = bytes();
    EXPECT_EQ(std::vector<int>(code.begin(), code.begin() + 9),
              (std::vector<int>{op::ICONST_0, op::IFNE, 0, 8, op::GOTO_W, 0, 1, 0x11, 0x75}));

    start(true);
    out.resolve(out.branch(op::GOTO));
    EXPECT_EQ(bytes(), (std::vector<int>{op::GOTO_W, 0, 0, 0, 5}));
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

TEST_F(EmitterTest, RegistersAreReusedAndIndicesAreNot) {
    int a = out.newLocal(context_.longType); // register 0: its sign cannot tell the width
    int b = out.newLocal(context_.intType);
    int first = out.code->nextVar;
    int d = out.newLocal(context_.doubleType);
    EXPECT_EQ(out.code->registers, (std::vector<int>{0, 2, -3}));
    EXPECT_EQ(out.registerOf(a), 0);
    EXPECT_EQ(out.registerOf(d), 3);
    out.endScopes(first);
    int e = out.newLocal(context_.intType);
    EXPECT_EQ(e, 3);
    EXPECT_EQ(out.registerOf(e), 3);
    EXPECT_EQ(out.code->maxLocals, 5);
    out.resetRegisters();
    EXPECT_EQ(out.registerOf(out.newLocal(context_.intType)), 5);
    EXPECT_EQ(out.registerOf(b), 2);
}

TEST_F(EmitterTest, InstructionsOnRegistersHaveAShortAndAWideForm) {
    struct Row {
        int reg;
        std::vector<int> load, increment;
    };
    const Row rows[] = {
        {3, {op::ILOAD_3}, {op::IINC, 3, 0xff}},
        {4, {op::ILOAD, 4}, {op::IINC, 4, 0xff}},
        {255, {op::ILOAD, 255}, {op::IINC, 255, 0xff}},
        {256, {op::WIDE, op::ILOAD, 1, 0}, {op::WIDE, op::IINC, 1, 0, 0xff, 0xff}},
    };
    for (const Row& row : rows) {
        start(false);
        for (int i = 0; i < row.reg; i++) out.newLocal(context_.intType);
        LocalItem* item = items::local(0, out.newLocal(context_.intType));
        item->load(context_.intType);
        EXPECT_EQ(bytes(), row.load) << row.reg;
        int at = out.code->cp;
        item->incr(-1);
        EXPECT_EQ(bytes(at), row.increment) << row.reg;
    }
}

TEST_F(EmitterTest, IntConstantsTakeTheShortestForm) {
    struct Row {
        int value;
        std::vector<int> code;
    };
    const Row rows[] = {{-1, {op::ICONST_M1}},
                        {5, {op::ICONST_5}},
                        {6, {op::BIPUSH, 6}},
                        {-2, {op::BIPUSH, 0xfe}},
                        {127, {op::BIPUSH, 127}},
                        {-128, {op::BIPUSH, 128}},
                        {128, {op::SIPUSH, 0, 128}},
                        {-129, {op::SIPUSH, 0xff, 0x7f}},
                        {32767, {op::SIPUSH, 0x7f, 0xff}},
                        {-32768, {op::SIPUSH, 0x80, 0}},
                        {32768, {op::LDC, 1}}};
    for (const Row& row : rows) {
        start(false);
        out.emitInt(row.value);
        EXPECT_EQ(bytes(), row.code) << row.value;
    }
}

TEST_F(EmitterTest, OtherConstantsTakeTheShortestForm) {
    struct Row {
        ConstantType* value;
        int opcode; ///< short form, or the first byte of a load from the pool
    };
    const Row rows[] = {
        {context_.longConstant(typetag::LONG, 0), op::LCONST_0},
        {context_.longConstant(typetag::LONG, 1), op::LCONST_1},
        {context_.longConstant(typetag::LONG, 2), op::LDC2_W},
        {context_.floatConstant(typetag::FLOAT, 0.0F), op::FCONST_0},
        {context_.floatConstant(typetag::FLOAT, 2.0F), op::FCONST_2},
        {context_.floatConstant(typetag::FLOAT, -0.0F), op::LDC},
        {context_.floatConstant(typetag::FLOAT, 3.0F), op::LDC},
        {context_.doubleConstant(typetag::DOUBLE, 0.0), op::DCONST_0},
        {context_.doubleConstant(typetag::DOUBLE, 1.0), op::DCONST_1},
        {context_.doubleConstant(typetag::DOUBLE, -0.0), op::LDC2_W},
        {context_.doubleConstant(typetag::DOUBLE, 2.0), op::LDC2_W},
        {context_.stringConstant(typetag::CLASS, Name::fromBytes("s")), op::LDC},
    };
    for (const Row& row : rows) {
        start(false);
        items::immediate(row.value)->load(row.value);
        EXPECT_EQ(bytes()[0], row.opcode);
        EXPECT_EQ(out.stackSize, widthOf(row.value));
    }
}

TEST_F(EmitterTest, PoolIndexFrom256OnNeedsTheLongLoad) {
    for (int i = 1; i < 255; i++) out.poolPut(context_.intConstant(typetag::INT, 100'000 + i));
    out.emitInt(200'000);
    out.emitInt(200'001);
    EXPECT_EQ(bytes(), (std::vector<int>{op::LDC, 255, op::LDC_W, 1, 0}));
}

TEST_F(EmitterTest, ConstantsAreConvertedWithoutCode) {
    struct Row {
        ConstantType* from;
        Type* to;
        std::vector<int> code;
    };
    auto number = [&](int value) { return context_.intConstant(typetag::INT, value); };
    const Row rows[] = {
        {number(200), context_.byteType, {op::BIPUSH, 0xc8}}, // -56
        {number(-1), context_.charType, {op::LDC, 1}},        // 65535
        {number(0x18000), context_.shortType, {op::SIPUSH, 0x80, 0}},
        {number(2), context_.floatType, {op::FCONST_2}},
        {number(1), context_.longType, {op::LCONST_1}},
        {number(0), context_.doubleType, {op::DCONST_0}},
        {context_.longConstant(typetag::LONG, 0x1'0000'0003), context_.intType, {op::ICONST_3}},
        {context_.doubleConstant(typetag::DOUBLE, 4.9), context_.intType, {op::ICONST_4}},
    };
    for (const Row& row : rows) {
        start(false);
        items::immediate(row.from)->coerce(row.from, row.to)->load(row.to);
        EXPECT_EQ(bytes(), row.code);
    }
}

TEST_F(EmitterTest, ConversionsGoByWayOfInt) {
    struct Row {
        Type *from, *to;
        std::vector<int> code;
    };
    Context& x = context_;
    const Row rows[] = {
        {x.byteType, x.intType, {}},
        {x.charType, x.longType, {op::I2L}},
        {x.intType, x.floatType, {op::I2F}},
        {x.intType, x.doubleType, {op::I2D}},
        {x.longType, x.intType, {op::L2I}},
        {x.longType, x.floatType, {op::L2F}},
        {x.longType, x.doubleType, {op::L2D}},
        {x.floatType, x.intType, {op::F2I}},
        {x.floatType, x.longType, {op::F2L}},
        {x.floatType, x.doubleType, {op::F2D}},
        {x.doubleType, x.intType, {op::D2I}},
        {x.doubleType, x.longType, {op::D2L}},
        {x.doubleType, x.floatType, {op::D2F}},
        {x.longType, x.byteType, {op::L2I, op::I2B}},
        {x.doubleType, x.charType, {op::D2I, op::I2C}},
        {x.intType, x.shortType, {op::I2S}},
        {x.charType, x.byteType, {op::I2B}},
    };
    for (const Row& row : rows) {
        start(false);
        out.stackSize = widthOf(row.from);
        items::stackItem()->coerce(row.from, row.to);
        EXPECT_EQ(bytes(), row.code) << row.from->toString() << " to " << row.to->toString();
        EXPECT_EQ(out.stackSize, widthOf(row.to));
    }
}

TEST_F(EmitterTest, AssignmentAsAValueKeepsACopyBelowTheTarget) {
    auto field = [&](std::uint32_t flags, Type* type) {
        auto* v = context_.arena.make<VarSymbol>();
        v->init(flags, VAR, Name::fromBytes("f"), type, c);
        return items::member(0, v, c);
    };
    struct Row {
        Item* target;
        int targetWords;
        Type* type;
        int copy;
    };
    Context& x = context_;
    const Row rows[] = {
        {items::local(0, out.newLocal(x.intType)), 0, x.intType, op::DUP},
        {items::local(0, out.newLocal(x.longType)), 0, x.longType, op::DUP2},
        {field(flag::STATIC, x.intType), 0, x.intType, op::DUP},
        {field(flag::STATIC, x.longType), 0, x.longType, op::DUP2},
        {field(0, x.intType), 1, x.intType, op::DUP_X1},
        {field(0, x.longType), 1, x.longType, op::DUP2_X1},
        {items::indexedItem(), 2, x.intType, op::DUP_X2},
        {items::indexedItem(), 2, x.longType, op::DUP2_X2},
    };
    for (const Row& row : rows) {
        out.stackSize = row.targetWords + widthOf(row.type);
        int at = out.code->cp;
        items::assign(row.target)->load(row.type);
        EXPECT_EQ(bytes(at)[0], row.copy);
        EXPECT_EQ(out.stackSize, widthOf(row.type));
        out.stackSize = row.targetWords + widthOf(row.type);
        items::assign(row.target)->drop(row.type);
        EXPECT_EQ(out.stackSize, 0);
    }
}

TEST_F(EmitterTest, JoinOfTwoPathsKeepsWhatEitherLeavesUnassigned) {
    VarSymbol* x = variable("x", context_.intType);
    VarSymbol* y = variable("y", context_.intType);
    Chain* elsePart = test();
    out.assigned(x->adr);
    out.assigned(y->adr);
    Chain* exit = out.branch(op::GOTO);
    EXPECT_TRUE(out.maybeUnset.empty()); // dead: all count as assigned, and as not assigned
    EXPECT_TRUE(out.maybeSet.empty());
    out.resolve(elsePart);
    out.assigned(y->adr);
    out.resolve(exit);
    EXPECT_TRUE(out.maybeUnset.isMember(x->adr));
    EXPECT_TRUE(out.maybeSet.isMember(x->adr));
    EXPECT_FALSE(out.maybeUnset.isMember(y->adr));
    for (int i = 0; i < 2; i++) { // reported once on a path
        out.checkAssigned(makePosition(7, 3), x->adr);
        out.checkAssigned(makePosition(8, 3), y->adr);
    }
    EXPECT_EQ(reporter.said, (std::vector<std::string>{"7:3 variable x might not have been initialized"}));
}

TEST_F(EmitterTest, FinalIsAssignedOnceAndNotInALoopAroundIt) {
    VarSymbol* outside = variable("outside", context_.intType, flag::FINAL);
    Bits* saved = out.beginLoop();
    VarSymbol* inside = variable("inside", context_.intType, flag::FINAL);
    int line = 0;
    auto assign = [&](const VarSymbol* v) {
        out.checkUnassigned(makePosition(static_cast<unsigned>(++line), 1), v->adr);
        out.assigned(v->adr);
    };
    assign(inside);  // 1
    assign(outside); // 2: once per round
    assign(inside);  // 3: the second time
    out.endLoop(saved);
    VarSymbol* after = variable("after", context_.intType, flag::FINAL);
    assign(after); // 4
    EXPECT_EQ(reporter.said,
              (std::vector<std::string>{"2:1 final variable outside might already have been assigned to",
                                        "3:1 final variable inside might already have been assigned to"}));
}

TEST_F(EmitterTest, CutJumpsLeadNowhere) {
    VarSymbol* x = variable("x", context_.intType);
    Chain* cut = test();
    out.assigned(x->adr);
    out.emitop(op::RETURN);
    cut->cut = true;
    out.resolve(cut);
    EXPECT_FALSE(out.alive);
    EXPECT_EQ(bytes(), (std::vector<int>{op::ICONST_0, op::IFEQ, 0, 0, op::RETURN}));
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

TEST_F(EmitterTest, MemberOfAHiddenClassIsReachedThroughItsSite) {
    ClassSymbol* package = context_.newPackage(Name::fromBytes("p"), context_.rootPackage);
    ClassSymbol* hidden = context_.newClass(0, Name::fromBytes("p.Hidden"), package);
    ClassSymbol* shown = context_.newClass(flag::PUBLIC, Name::fromBytes("p.Shown"), package);
    shown->superclass = hidden;
    VarSymbol field;
    field.init(flag::PUBLIC, VAR, Name::fromBytes("f"), context_.intType, hidden);

    Symbol* throughShown = out.poolMember(&field, shown);
    EXPECT_NE(throughShown, &field);
    EXPECT_EQ(throughShown->owner, shown);
    EXPECT_EQ(throughShown->name, field.name);
    EXPECT_EQ(out.poolMember(&field, shown), throughShown); // one entry for all references
    EXPECT_EQ(out.poolMember(&field, nullptr)->owner, c);   // by its plain name, in a subclass of Shown
    field.owner = shown;
    EXPECT_EQ(out.poolMember(&field, shown), &field);

    out.startClass(context_.newClass(0, Name::fromBytes("p.Neighbour"), package), &pool);
    field.owner = hidden;
    EXPECT_EQ(out.poolMember(&field, shown), &field); // the package sees it
}

} // namespace
} // namespace tarn
