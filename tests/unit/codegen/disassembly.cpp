#include "disassembly.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <tuple>

namespace tarn {
namespace {

const char* const mnemonics =
    "nop aconst_null iconst_m1 iconst_0 iconst_1 iconst_2 iconst_3 iconst_4 iconst_5 lconst_0 lconst_1 fconst_0 "
    "fconst_1 fconst_2 dconst_0 dconst_1 bipush sipush ldc ldc_w ldc2_w iload lload fload dload aload iload_0 iload_1 "
    "iload_2 iload_3 lload_0 lload_1 lload_2 lload_3 fload_0 fload_1 fload_2 fload_3 dload_0 dload_1 dload_2 dload_3 "
    "aload_0 aload_1 aload_2 aload_3 iaload laload faload daload aaload baload caload saload istore lstore fstore "
    "dstore astore istore_0 istore_1 istore_2 istore_3 lstore_0 lstore_1 lstore_2 lstore_3 fstore_0 fstore_1 fstore_2 "
    "fstore_3 dstore_0 dstore_1 dstore_2 dstore_3 astore_0 astore_1 astore_2 astore_3 iastore lastore fastore dastore "
    "aastore bastore castore sastore pop pop2 dup dup_x1 dup_x2 dup2 dup2_x1 dup2_x2 swap iadd ladd fadd dadd isub "
    "lsub "
    "fsub dsub imul lmul fmul dmul idiv ldiv fdiv ddiv irem lrem frem drem ineg lneg fneg dneg ishl lshl ishr lshr "
    "iushr lushr iand land ior lor ixor lxor iinc i2l i2f i2d l2i l2f l2d f2i f2l f2d d2i d2l d2f i2b i2c i2s lcmp "
    "fcmpl fcmpg dcmpl dcmpg ifeq ifne iflt ifge ifgt ifle if_icmpeq if_icmpne if_icmplt if_icmpge if_icmpgt if_icmple "
    "if_acmpeq if_acmpne goto jsr ret tableswitch lookupswitch ireturn lreturn freturn dreturn areturn return "
    "getstatic "
    "putstatic getfield putfield invokevirtual invokespecial invokestatic invokeinterface unused new newarray "
    "anewarray arraylength athrow checkcast instanceof monitorenter monitorexit wide multianewarray ifnull ifnonnull "
    "goto_w jsr_w";

std::vector<std::string> splitMnemonics() {
    std::istringstream words(mnemonics);
    std::vector<std::string> list;
    for (std::string word; words >> word;) list.push_back(word);
    return list;
}

class ClassFileText {
public:
    explicit ClassFileText(const Bytes& bytes) : bytes_(bytes) {
        if (u4(0) != 0xCAFEBABE) throw std::runtime_error("no class file");
        at_ = 8;
        readPool();
        at_ += 6;
        at_ += 2 + 2 * u2(at_);
        skipMembers();
        methods_ = at_;
    }

    template <class Visit>
    void eachMethod(Visit visit) {
        at_ = methods_ + 2;
        for (int left = u2(methods_); left > 0; left--) {
            std::string name = utf8(u2(at_ + 2));
            int attributes = u2(at_ + 6);
            at_ += 8;
            int code = -1;
            for (; attributes > 0; attributes--) {
                if (utf8(u2(at_)) == "Code") code = at_ + 6;
                at_ += 6 + static_cast<int>(u4(at_ + 2));
            }
            visit(name, code);
        }
    }

    Disassembly method(int at) {
        Disassembly text;
        text.maxStack = u2(at);
        text.maxLocals = u2(at + 2);
        int length = static_cast<int>(u4(at + 4));
        code_ = at + 8;
        for (int pc = 0; pc < length;) {
            if (pc > 0) text.code += ", ";
            pc += instruction(pc, text.code);
        }
        at = code_ + length;
        for (int left = u2(at); left > 0; left--) {
            int entry = at + 2 + 8 * (u2(at) - left);
            std::string type = u2(entry + 6) == 0 ? "any" : constant(u2(entry + 6));
            separate(text.handlers) +=
                number(u2(entry)) + "-" + number(u2(entry + 2)) + " " + number(u2(entry + 4)) + " " + type;
        }
        at += 2 + 8 * u2(at);
        tables(at, text);
        return text;
    }

private:
    static std::string number(long value) { return std::to_string(value); }
    static std::string& separate(std::string& list) {
        if (!list.empty()) list += ", ";
        return list;
    }
    [[nodiscard]] int u1(int at) const { return bytes_.at(static_cast<std::size_t>(at)); }
    [[nodiscard]] int u2(int at) const { return u1(at) << 8 | u1(at + 1); }
    [[nodiscard]] std::uint32_t u4(int at) const {
        return static_cast<std::uint32_t>(u2(at)) << 16 | static_cast<std::uint32_t>(u2(at + 2));
    }
    [[nodiscard]] int s2(int at) const { return static_cast<std::int16_t>(u2(at)); }
    [[nodiscard]] int s4(int at) const { return static_cast<std::int32_t>(u4(at)); }

    void readPool() {
        int count = u2(at_);
        at_ += 2;
        pool_.assign(static_cast<std::size_t>(count), 0);
        for (int i = 1; i < count; i++) {
            pool_[static_cast<std::size_t>(i)] = at_;
            switch (u1(at_)) {
            case 1: at_ += 3 + u2(at_ + 1); break;
            case 5:
            case 6:
                at_ += 9;
                i++;
                break;
            case 7:
            case 8: at_ += 3; break;
            default: at_ += 5; break;
            }
        }
    }

    void skipMembers() {
        int count = u2(at_);
        at_ += 2;
        for (; count > 0; count--) {
            int attributes = u2(at_ + 6);
            at_ += 8;
            for (; attributes > 0; attributes--) at_ += 6 + static_cast<int>(u4(at_ + 2));
        }
    }

    [[nodiscard]] int entry(int index) const { return pool_.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] std::string utf8(int index) const {
        int at = entry(index);
        return {bytes_.begin() + at + 3, bytes_.begin() + at + 3 + u2(at + 1)};
    }

    [[nodiscard]] std::string constant(int index) const {
        int at = entry(index);
        auto wide = [&] { return static_cast<std::uint64_t>(u4(at + 1)) << 32 | u4(at + 5); };
        std::ostringstream text;
        switch (u1(at)) {
        case 3: text << s4(at + 1); break;
        case 4: text << std::bit_cast<float>(u4(at + 1)) << "f"; break;
        case 5: text << static_cast<std::int64_t>(wide()) << "L"; break;
        case 6: text << std::bit_cast<double>(wide()) << "d"; break;
        case 7: text << utf8(u2(at + 1)); break;
        case 8: text << '"' << utf8(u2(at + 1)) << '"'; break;
        default: {
            int pair = entry(u2(at + 3));
            text << constant(u2(at + 1)) << "." << utf8(u2(pair + 1)) << ":" << utf8(u2(pair + 3));
            break;
        }
        }
        return text.str();
    }

    /// Appends the instruction at `pc` and gives its length.
    int instruction(int pc, std::string& text) {
        static const std::vector<std::string> names = splitMnemonics();
        int at = code_ + pc;
        int opcode = u1(at);
        text += names.at(static_cast<std::size_t>(opcode));
        auto operand = [&](const std::string& shown) { text += " " + shown; };
        auto is = [&](int from, int to) { return opcode >= from && opcode <= to; };
        if (opcode == 16) return operand(number(static_cast<std::int8_t>(u1(at + 1)))), 2;
        if (opcode == 17) return operand(number(s2(at + 1))), 3;
        if (opcode == 18) return operand(constant(u1(at + 1))), 2;
        if (is(19, 20) || is(178, 184) || opcode == 187 || opcode == 189 || is(192, 193))
            return operand(constant(u2(at + 1))), 3;
        if (is(21, 25) || is(54, 58) || opcode == 169 || opcode == 188) return operand(number(u1(at + 1))), 2;
        if (opcode == 132) return operand(number(u1(at + 1)) + " " + number(static_cast<std::int8_t>(u1(at + 2)))), 3;
        if (is(153, 168) || is(198, 199)) return operand(number(pc + s2(at + 1))), 3;
        if (is(200, 201)) return operand(number(pc + s4(at + 1))), 5;
        if (opcode == 185)
            return operand(constant(u2(at + 1)) + " " + number(u1(at + 3)) + " " + number(u1(at + 4))), 5;
        if (opcode == 197) return operand(constant(u2(at + 1)) + " " + number(u1(at + 3))), 4;
        if (is(170, 171)) return switchTable(pc, opcode == 170, text);
        if (opcode == 196) return wide(at, text);
        return 1;
    }

    int switchTable(int pc, bool table, std::string& text) {
        int base = (pc + 4) / 4 * 4;
        int at = code_ + base;
        text += " default=" + number(pc + s4(at));
        if (!table) {
            int count = s4(at + 4);
            for (int i = 0; i < count; i++)
                text += " " + number(s4(at + 8 + 8 * i)) + "=" + number(pc + s4(at + 12 + 8 * i));
            return base + 8 + 8 * count - pc;
        }
        int low = s4(at + 4);
        int slots = s4(at + 8) - low + 1;
        for (int i = 0; i < slots; i++)
            text += " " + number(static_cast<long>(low) + i) + "=" + number(pc + s4(at + 12 + 4 * i));
        return base + 12 + 4 * slots - pc;
    }

    int wide(int at, std::string& text) {
        text += " " + splitMnemonics().at(static_cast<std::size_t>(u1(at + 1))) + " " + number(u2(at + 2));
        if (u1(at + 1) != 132) return 4;
        text += " " + number(s2(at + 4));
        return 6;
    }

    void tables(int at, Disassembly& text) {
        int count = u2(at);
        at += 2;
        for (; count > 0; count--) {
            std::string name = utf8(u2(at));
            int entries = u2(at + 6);
            if (name == "LineNumberTable") {
                for (int i = 0; i < entries; i++)
                    separate(text.lines) += number(u2(at + 8 + 4 * i)) + ":" + number(u2(at + 10 + 4 * i));
            } else {
                std::vector<std::tuple<int, std::string>> sorted;
                for (int i = 0; i < entries; i++) {
                    int row = at + 8 + 10 * i;
                    sorted.emplace_back(u2(row), utf8(u2(row + 4)) + " " + number(u2(row)) + "-" +
                                                     number(u2(row) + u2(row + 2)) + " r" + number(u2(row + 8)));
                }
                std::sort(sorted.begin(), sorted.end());
                for (const auto& [start, row] : sorted) separate(text.locals) += row;
            }
            at += 6 + static_cast<int>(u4(at + 2));
        }
    }

    const Bytes& bytes_;
    int at_ = 0;
    int methods_ = 0;
    int code_ = 0;
    std::vector<int> pool_; ///< offset by index
};

} // namespace

std::map<std::string, Disassembly> disassemble(const Bytes& classFile) {
    ClassFileText file(classFile);
    std::map<std::string, Disassembly> methods;
    file.eachMethod([&](const std::string& name, int code) {
        if (code >= 0) methods[name] = file.method(code);
    });
    return methods;
}

std::vector<std::string> methodNames(const Bytes& classFile) {
    ClassFileText file(classFile);
    std::vector<std::string> names;
    file.eachMethod([&](const std::string& name, int) { names.push_back(name); });
    return names;
}

} // namespace tarn
