#pragma once

#include "classfile/class_file.h"
#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/scope.h"
#include "store/memory_store.h"
#include "unit/classfile/class_bytes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// A context whose class path and output directory are in memory.
class ClassFileTest : public ::testing::Test {
protected:
    ClassFileTest() {
        here.classPath = std::make_shared<std::vector<StoreRef>>(std::vector<StoreRef>{path});
        here.outputDirectory = output;
        put("java/lang/Object.class", ClassBytes("java/lang/Object", "").build());
    }

    /// A store in memory takes the whole relative path for the name of an entry.
    void put(std::string_view name, const Bytes& contents) { path->create(name)->write(contents); }
    /// The class's file, under its own name, on the class path.
    void put(std::string_view name, const ClassBytes& c) { put(std::string(name) + ".class", c.build()); }

    ClassSymbol* load(std::string_view flatName) { return here.classReader->load(Name::fromBytes(flatName)); }
    /// The text of the failure, or "loaded".
    std::string failure(std::string_view flatName) {
        try {
            load(flatName);
            return "loaded";
        } catch (const ClassNotFound& notFound) {
            return notFound.what();
        }
    }
    static Symbol* member(const ClassSymbol* c, std::string_view name) {
        return c->members->lookup(Name::fromBytes(name))->sym;
    }
    /// The names of what was entered, oldest first.
    static std::string membersOf(const ClassSymbol* c) {
        std::string names;
        for (Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling)
            names = entry->name->toString() + " " + names;
        return names;
    }

    Context here;
    std::shared_ptr<ByteArrayStore> path = ByteArrayStore::root("path");
    std::shared_ptr<ByteArrayStore> output = ByteArrayStore::root("out");
};

} // namespace tarn
