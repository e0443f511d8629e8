#include "make/graph.h"

#include "semantic/symbol.h"
#include "semantic/universe.h"
#include "store/archive_store.h"
#include "store/file_path.h"

#include <algorithm>
#include <utility>

namespace tarn {

Graph::Graph() : unnamedPackage(names().dot) {}

Name* packageOfClass(Name* flatName) {
    Name* package = packagePart(flatName);
    return package == nullptr ? names().dot : package;
}

ClassNode& Graph::classNode(Name* flatName) {
    if (ClassNode* known = classByName_[flatName]) return *known;
    ClassNode& node = classes.emplace_back();
    classByName_[flatName] = &node;
    node.name = flatName;
    node.simpleName = shortName(flatName);
    node.packageName = packageOfClass(flatName);
    link(node);
    return node;
}

ClassNode& Graph::classNode(const ImportRecord& import) {
    if (import.node == nullptr) import.node = &classNode(import.name);
    return *import.node;
}

/// Tells the class around the new one of it, and the others of its last name.
void Graph::link(ClassNode& node) {
    int dollar = node.simpleName->lastIndexOf('$');
    int length = static_cast<int>(node.simpleName->length);
    node.lastName = node.simpleName;
    if (dollar > 0 && dollar + 1 < length) {
        int prefix = static_cast<int>(node.name->length) - length;
        node.outer = &classNode(node.name->subName(0, prefix + dollar));
        char first = node.simpleName->view()[static_cast<std::size_t>(dollar) + 1];
        bool isMember = first < '0' || first > '9';
        node.lastName = isMember ? node.simpleName->subName(dollar + 1, length) : nullptr;
    }
    if (node.lastName == nullptr) return;
    ClassNode*& newest = classByLastName_[node.lastName];
    if (newest != nullptr) {
        markHomonym(node);
        if (!newest->hasHomonym) markHomonym(*newest);
    }
    node.nextHomonym = std::exchange(newest, &node);
}

void Graph::markHomonym(ClassNode& node) {
    node.hasHomonym = true;
    if (node.outer != nullptr) node.nextMember = std::exchange(node.outer->members, &node);
}

ClassNode* Graph::firstOfLastName(Name* lastName) const {
    auto found = classByLastName_.find(lastName);
    return found == classByLastName_.end() ? nullptr : found->second;
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
