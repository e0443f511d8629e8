#include "store/memory_store.h"

#include "runtime/failure.h"
#include "store/file_path.h"

#include <algorithm>
#include <functional>

namespace tarn {

std::shared_ptr<ByteArrayStore> ByteArrayStore::root(std::string name) {
    return std::make_shared<ByteArrayStore>(Key(), std::weak_ptr<ByteArrayStore>(), std::move(name));
}

std::shared_ptr<ByteArrayStore> ByteArrayStore::addChild(std::string name) {
    auto self = std::static_pointer_cast<ByteArrayStore>(shared_from_this());
    auto child = std::make_shared<ByteArrayStore>(Key(), self, std::move(name));
    if (!children_) becomeDirectory();
    children_->push_back(child);
    return child;
}

void ByteArrayStore::becomeDirectory() {
    bytes_.reset();
    children_.emplace();
}

bool ByteArrayStore::equals(const Store& other) const {
    const auto* that = dynamic_cast<const ByteArrayStore*>(&other);
    return that != nullptr && name_ == that->name_ && version_ == that->version_;
}

std::uint32_t ByteArrayStore::hashCode() const {
    return static_cast<std::uint32_t>(std::hash<std::string>()(name_)) + (static_cast<std::uint32_t>(version_) << 10);
}

std::string ByteArrayStore::toString() const {
    return "ByteArrayStore[" + path() + "]";
}

std::string ByteArrayStore::path() const {
    std::optional<std::string> above = parent();
    return above ? joinPath(*above, name_) : name_;
}

std::optional<std::string> ByteArrayStore::canonicalPath() const {
    return toString();
}

std::optional<std::string> ByteArrayStore::parent() const {
    std::shared_ptr<ByteArrayStore> parent = parent_.lock();
    if (!parent) return std::nullopt;
    return parent->path();
}

Bytes ByteArrayStore::read() {
    if (!bytes_) throw IoFailure("not readable: " + path());
    return *bytes_;
}

std::size_t ByteArrayStore::readInto(std::span<std::uint8_t> buffer) {
    if (!bytes_) throw IoFailure("not readable: " + path());
    std::copy_n(bytes_->begin(), std::min(bytes_->size(), buffer.size()), buffer.begin());
    return bytes_->size();
}

void ByteArrayStore::write(std::span<const std::uint8_t> contents) {
    if (children_) throw IoFailure("not writable: " + path());
    bytes_.emplace(contents.begin(), contents.end());
    ++version_;
}

std::optional<std::vector<std::string>> ByteArrayStore::list() {
    if (!children_) throw IoFailure("not a directory: " + name_);
    std::vector<std::string> names;
    names.reserve(children_->size());
    for (const auto& child : *children_) names.push_back(child->name_);
    return names;
}

std::shared_ptr<ByteArrayStore> ByteArrayStore::find(std::string_view name) const {
    if (!children_) return nullptr;
    auto at =
        std::find_if(children_->begin(), children_->end(), [&](const auto& child) { return child->name_ == name; });
    return at == children_->end() ? nullptr : *at;
}

StoreRef ByteArrayStore::lookup(std::string_view name) {
    return find(name);
}

StoreRef ByteArrayStore::create(std::string_view name) {
    if (bytes_) throw IoFailure("not a directory: " + name_);
    if (std::shared_ptr<ByteArrayStore> child = find(name)) return child;
    return addChild(std::string(name));
}

StoreRef ByteArrayStore::makeDirectory(std::string_view name) {
    if (bytes_) throw IoFailure("not a directory: " + std::string(name));
    std::shared_ptr<ByteArrayStore> child = find(name);
    if (!child) child = addChild(std::string(name));
    if (child->bytes_) throw IoFailure("not a directory: " + std::string(name));
    if (!child->children_) child->becomeDirectory();
    return child;
}

} // namespace tarn
