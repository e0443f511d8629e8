#include "store/path_list.h"

#include "store/archive_store.h"
#include "store/directory_store.h"
#include "store/file_path.h"

namespace tarn {

namespace {

StoreRef storeOfElement(std::string_view element) {
    if (element.ends_with(".zip") || element.ends_with(".jar"))
        return std::make_shared<ArchiveStore>(std::string(element));
    return std::make_shared<DirectoryStore>(std::string(element));
}

void printTwo(const SearchTrace& trace, std::string_view first, std::string_view second) {
    std::string line(first);
    trace.println(line.append(second));
}

} // namespace

PathList parsePathList(const std::optional<std::string>& text) {
    if (!text) return nullptr;
    auto list = std::make_shared<std::vector<StoreRef>>();
    std::string_view rest = *text;
    while (!rest.empty()) {
        std::size_t end = rest.find(PATH_SEPARATOR);
        if (end != 0) list->push_back(storeOfElement(rest.substr(0, end)));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    return list;
}

StoreRef search(const PathList& stores, std::string_view name, const SearchTrace* trace) {
    if (trace != nullptr) printTwo(*trace, trace->header, name);
    if (!stores) return nullptr;
    for (const StoreRef& store : *stores) {
        if (trace != nullptr) printTwo(*trace, " in ", store->toString());
        if (StoreRef found = store->lookup(name)) return found;
    }
    return nullptr;
}

StoreRef outputStore(StoreRef outputDirectory, std::string_view name, std::string_view extension) {
    StoreRef store = std::move(outputDirectory);
    // The directories are there but for the first class of a package, so the file system needs no look at each of them.
    if (dynamic_cast<DirectoryStore*>(store.get()) != nullptr && name.find("//") == std::string_view::npos &&
        !name.starts_with(FILE_SEPARATOR)) {
        if (StoreRef file = store->create(std::string(name).append(extension))) return file;
    }
    std::size_t end;
    while ((end = name.find(FILE_SEPARATOR)) != std::string_view::npos) {
        if (end != 0) store = store->makeDirectory(name.substr(0, end));
        name.remove_prefix(end + 1);
    }
    return store->create(std::string(name).append(extension));
}

StoreRef storeBeside(const Store& source, std::string_view fileName) {
    return std::make_shared<DirectoryStore>(joinPath(source.parent().value_or(std::string()), fileName));
}

} // namespace tarn
