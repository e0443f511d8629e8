#pragma once

#include "runtime/failure.h"

#include <cstdint>

namespace tarn {

class ClassSymbol;
class Name;
class Symbol;

/// The fingerprint of a field or method: of its name, type, flags, constant value and thrown classes, and not of its
/// code. The same from its compile and from its class file, and in every run. The other members have none.
std::int32_t memberFingerprint(const Symbol* member);

/// A number for the name and what is known of it. Sums of such numbers do not depend on the order of their items, and
/// are the same in every run.
std::uint32_t mixed(const Name* name, std::uint32_t value);

/// The name of the wide reference that stands for other classes of an import's name; see WIDE_REFERENCE.
Name* homonymsName();

/// Thrown where a class is needed that a failed batch left in the air; that batch has been reported.
struct NotGenerated : MakeAbort {};

/// Walks over what the constant pool of a class refers to, and over the constants of other classes that left no trace
/// there.
class ReferenceVisitor {
public:
    virtual ~ReferenceVisitor() = default;
    /// A class that is named, if only in a descriptor; also the class itself; more than once.
    virtual void visitClass(Name* flatName) = 0;
    /// A field or method of the class `owner`.
    virtual void visitMember(Name* owner, const Symbol* member) = 0;
    /// A member that was looked up in the class `site` and found in a supertype of it.
    virtual void visitSite(Name* site, const Symbol* member) = 0;
};
void visitReferences(const ClassSymbol* c, ReferenceVisitor& visitor);

} // namespace tarn
