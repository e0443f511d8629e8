#include "semantic/context.h"

#include "classfile/class_file.h"
#include "store/directory_store.h"
#include "store/encoding.h"

namespace tarn {

Context* Context::current = nullptr;

Context::Context()
    : encoding(resolveEncoding("default"))
    , outputDirectory(std::make_shared<DirectoryStore>("."))
    , classReader(std::make_unique<ClassFile>()) {
    makeCurrent();
}

void Context::makeCurrent() {
    Universe::makeCurrent();
    current = this;
    currentOptions = &options;
}

Context::~Context() {
    if (current == this) current = nullptr;
    if (currentOptions == &options) currentOptions = nullptr;
}

} // namespace tarn
