#pragma once

#include "runtime/arena.h"
#include "syntax/name.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace tarn {

/// A set of nodes, found by their `name`, that keeps the order in which they came.
///
/// Most tables of the dependency graph are small (what one class uses of another) and a few are large, so up to eight
/// nodes are found by looking at each, and more through an index. The memory is the arena's, which is handed in by
/// whoever adds; what a table outgrows stays there. The nodes themselves belong to others.
template <class Node>
class NodeTable {
public:
    /// The node of that name, or null.
    [[nodiscard]] Node* find(const Name* name) const {
        if (slots_ == 0) {
            for (Node* node : nodes())
                if (node->name == name) return node;
            return nullptr;
        }
        for (std::uint32_t at = slotOf(name);; at = (at + 1) & (slots_ - 1)) {
            if (index_[at] == 0) return nullptr;
            if (nodes_[index_[at] - 1]->name == name) return nodes_[index_[at] - 1];
        }
    }

    /// Adds the node, or puts it in the place of one of the same name.
    void put(Arena& arena, Node* node) {
        for (std::uint32_t i = 0; slots_ == 0 && i < size_; i++)
            if (nodes_[i]->name == node->name) return void(nodes_[i] = node);
        if (slots_ != 0) {
            std::uint32_t at = slotOf(node->name);
            for (; index_[at] != 0; at = (at + 1) & (slots_ - 1))
                if (nodes_[index_[at] - 1]->name == node->name) return void(nodes_[index_[at] - 1] = node);
        }
        append(arena, node);
    }

    /// Makes room for `count` nodes in all.
    void reserve(Arena& arena, std::uint32_t count) {
        if (count <= capacity_) return;
        std::span<Node*> wider = arena.makeArray<Node*>(count);
        std::copy_n(nodes_, size_, wider.data());
        nodes_ = wider.data();
        capacity_ = count;
        if (capacity_ > LINEAR) buildIndex(arena);
    }

    /// Keeps the nodes for which `isWanted` holds, in their order.
    template <class Predicate>
    void keepIf(Predicate isWanted) {
        std::uint32_t kept = 0;
        for (Node* node : nodes())
            if (isWanted(node)) nodes_[kept++] = node;
        size_ = kept;
        fillIndex();
    }

    [[nodiscard]] std::uint32_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    /// In the order in which they came. Valid until the table changes.
    [[nodiscard]] std::span<Node* const> nodes() const { return {nodes_, size_}; }
    /// The node at that place; for walks during which the table may grow.
    Node* operator[](std::uint32_t at) const { return nodes_[at]; }

private:
    static constexpr std::uint32_t LINEAR = 8; ///< up to so many nodes there is no index

    [[nodiscard]] std::uint32_t slotOf(const Name* name) const {
        return ((name->index * 0x9E3779B1u) >> 8) & (slots_ - 1);
    }

    void append(Arena& arena, Node* node) {
        if (size_ == capacity_) reserve(arena, capacity_ == 0 ? 4 : capacity_ * 2);
        nodes_[size_++] = node;
        if (slots_ != 0) enterIndex(size_);
    }

    void buildIndex(Arena& arena) {
        std::uint32_t slots = 32;
        while (slots < capacity_ * 2) slots *= 2;
        if (slots > slots_) index_ = arena.makeArray<std::uint32_t>(slots).data();
        slots_ = slots;
        fillIndex();
    }

    void fillIndex() {
        if (slots_ == 0) return;
        std::fill_n(index_, slots_, 0);
        for (std::uint32_t i = 1; i <= size_; i++) enterIndex(i);
    }

    void enterIndex(std::uint32_t place) {
        std::uint32_t at = slotOf(nodes_[place - 1]->name);
        while (index_[at] != 0) at = (at + 1) & (slots_ - 1);
        index_[at] = place;
    }

    Node** nodes_ = nullptr;
    std::uint32_t* index_ = nullptr; ///< places in `nodes_`, counted from 1; 0 for a free slot
    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = 0;
    std::uint32_t slots_ = 0; ///< of the index, a power of two; 0 if there is none
};

} // namespace tarn
