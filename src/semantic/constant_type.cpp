#include "runtime/failure.h"
#include "runtime/java_number.h"
#include "semantic/context.h"
#include "semantic/type.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tarn {

using namespace typetag;

std::string ConstantType::toString() const {
    return context().typeOfTag[tag]->toString();
}

ConstantType* ConstantType::coerce(int target) {
    if (target == tag) return this;
    switch (target) {
    case BYTE:
    case CHAR:
    case SHORT:
    case INT:
    case BOOLEAN: return context().intConstant(target, intValue());
    case LONG: return context().longConstant(target, longValue());
    case FLOAT: return context().floatConstant(target, floatValue());
    case DOUBLE: return context().doubleConstant(target, doubleValue());
    default: throw InternalError("bad tag: " + std::to_string(target));
    }
}

// ---- assignment of constants

bool IntConstant::isAssignable(Type* other) {
    if (tag <= INT) {
        switch (other->tag) {
        case BYTE: return value >= -128 && value <= 127;
        case CHAR: return value >= 0 && value <= 65535;
        case SHORT: return value >= -32768 && value <= 32767;
        default: break;
        }
    }
    return isSubType(other);
}

bool StringConstant::isAssignable(Type* other) {
    return isSubType(other) || (other->isConstant() && other->tag == CLASS);
}

bool StringConstant::equals(const ConstantType* other) const {
    return other->tag == CLASS && other->stringValue() == stringValue();
}

Name* StringConstant::join() const {
    std::vector<Name*> parts; // from the last to the first
    std::vector<const ConstantType*> waiting{this};
    while (!waiting.empty()) {
        const ConstantType* next = waiting.back();
        waiting.pop_back();
        const auto* text = next->tag == CLASS ? static_cast<const StringConstant*>(next) : nullptr;
        if (text != nullptr && text->value == nullptr)
            waiting.insert(waiting.end(), {text->left, text->right});
        else
            parts.push_back(next->stringValue());
    }
    std::reverse(parts.begin(), parts.end());
    return value = Name::concat(parts);
}

// ---- values

std::int32_t FloatConstant::intValue() const {
    return toJavaInt(value);
}
std::int64_t FloatConstant::longValue() const {
    return toJavaLong(value);
}
std::int32_t DoubleConstant::intValue() const {
    return toJavaInt(value);
}
std::int64_t DoubleConstant::longValue() const {
    return toJavaLong(value);
}

namespace {

[[noreturn]] void noNumber() {
    throw InternalError("number of a string constant");
}

} // namespace

std::int32_t StringConstant::intValue() const {
    noNumber();
}
std::int64_t StringConstant::longValue() const {
    noNumber();
}
float StringConstant::floatValue() const {
    noNumber();
}
double StringConstant::doubleValue() const {
    noNumber();
}

// ---- texts

namespace {

/// The name of the one UTF-16 unit, in class-file UTF-8.
Name* nameOfUnit(unsigned unit) {
    std::string text;
    if (unit >= 1 && unit <= 0x7F) {
        text += static_cast<char>(unit);
    } else if (unit <= 0x7FF) {
        text += static_cast<char>(0xC0 | unit >> 6);
        text += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | unit >> 12);
        text += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (unit & 0x3F));
    }
    return Name::fromBytes(text);
}

} // namespace

Name* IntConstant::stringValue() const {
    if (tag == BOOLEAN) return value != 0 ? names().true_ : names().false_;
    if (tag == CHAR) return nameOfUnit(static_cast<unsigned>(value) & 0xFFFF);
    return Name::fromBytes(std::to_string(value));
}

Name* LongConstant::stringValue() const {
    return Name::fromBytes(std::to_string(value));
}
Name* FloatConstant::stringValue() const {
    return Name::fromBytes(toJavaText(value));
}
Name* DoubleConstant::stringValue() const {
    return Name::fromBytes(toJavaText(value));
}

} // namespace tarn
