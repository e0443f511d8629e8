#include "make/graph.h"

#include "semantic/symbol.h"
#include "semantic/universe.h"
#include "store/archive_store.h"
#include "store/file_path.h"

#include <algorithm>

namespace tarn {

Graph::Graph() : unnamedPackage(names().dot) {}

Name* packageOfClass(Name* flatName) {
    Name* package = packagePart(flatName);
    return package == nullptr ? names().dot : package;
}

ClassNode& Graph::classNode(Name* flatName) {
    ClassNode*& node = classByName_[flatName];
    if (node == nullptr) {
        node = &classes.emplace_back();
        node->name = flatName;
        node->simpleName = shortName(flatName);
        node->packageName = packageOfClass(flatName);
    }
    return *node;
}

ClassNode* Graph::findClass(Name* flatName) const {
    auto found = classByName_.find(flatName);
    return found == classByName_.end() ? nullptr : found->second;
}

SourceNode& Graph::sourceNode(Name* path) {
    SourceNode*& node = sourceByPath_[path];
    if (node == nullptr) {
        int separator = path->lastIndexOf(FILE_SEPARATOR);
        node = &sourceOfRecord(separator < 0 ? path : path->subName(separator + 1, static_cast<int>(path->length)));
        node->path = path;
    }
    return *node;
}

SourceNode& Graph::sourceOfRecord(Name* simpleName) {
    SourceNode& node = sources.emplace_back();
    node.name = simpleName;
    return node;
}

PackageNode& Graph::newPackage(Name* packageName) {
    PackageNode& node = packageNodes_.emplace_back();
    node.name = packageName;
    packages.put(arena, &node);
    return node;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    auto folded = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return folded(x) == folded(y); });
}

bool isInArchive(const Store* store) {
    return dynamic_cast<const ZipStore*>(store) != nullptr;
}

std::string directoryOfPackage(const Name* packageName) {
    if (packageName == names().dot) return ".";
    std::string path = packageName->toString();
    std::replace(path.begin(), path.end(), '.', FILE_SEPARATOR);
    return path;
}

std::string dependencyFileStem(const Name* packageName) {
    if (packageName == names().dot) return "UnnamedPackage";
    return joinPath(directoryOfPackage(packageName), packageName->toString());
}

} // namespace tarn
