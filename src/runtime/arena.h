#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace tarn {

/// A bump allocator for things that live and die together: the trees of one unit, the symbols and types of a run.
///
/// What is made here is handed around as a plain pointer and never deleted by itself; destructors are not run, so a
/// type that owns memory of its own (a vector, a string) does not belong here unless leaking that memory until the
/// process ends is meant. Blocks that an arena gives up are kept for the next one, so that a run over many units
/// touches no more memory than its largest moment needs. Used by one thread.
class Arena {
public:
    Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena() { clear(); }

    void* allocate(std::size_t size, std::size_t alignment) {
        std::uintptr_t at = (next_ + alignment - 1) & ~(alignment - 1);
        if (at + size > end_) [[unlikely]]
            return allocateSlow(size, alignment);
        next_ = at + size;
        return reinterpret_cast<void*>(at);
    }

    template <class T, class... Arguments>
    T* make(Arguments&&... arguments) {
        return new (allocate(sizeof(T), alignof(T))) T(std::forward<Arguments>(arguments)...);
    }

    /// An array of `count` value-initialised elements; may be empty.
    template <class T>
    std::span<T> makeArray(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<T>);
        if (count == 0) return {};
        T* first = static_cast<T*>(allocate(count * sizeof(T), alignof(T)));
        std::uninitialized_value_construct_n(first, count);
        return {first, count};
    }

    /// A copy of `elements` in the arena.
    template <class T>
    std::span<T> copyArray(std::span<const T> elements) {
        if (elements.empty()) return {};
        T* first = static_cast<T*>(allocate(elements.size_bytes(), alignof(T)));
        std::uninitialized_copy(elements.begin(), elements.end(), first);
        return {first, elements.size()};
    }

    /// Forgets all that was made.
    void clear() {
        for (Block& block : blocks_) spareBlocks().push_back(std::move(block));
        blocks_.clear();
        large_.clear();
        next_ = end_ = 0;
    }

private:
    static constexpr std::size_t BLOCK_SIZE = 32 * 1024;
    using Block = std::unique_ptr<std::byte[]>;

    static std::vector<Block>& spareBlocks() {
        static auto* const spare = new std::vector<Block>; // outlives every arena
        return *spare;
    }

    void* allocateSlow(std::size_t size, std::size_t alignment) {
        if (size + alignment > BLOCK_SIZE / 4) {
            large_.emplace_back(new std::byte[size + alignment]);
            auto at = reinterpret_cast<std::uintptr_t>(large_.back().get());
            return reinterpret_cast<void*>((at + alignment - 1) & ~(alignment - 1));
        }
        if (spareBlocks().empty()) {
            blocks_.emplace_back(new std::byte[BLOCK_SIZE]);
        } else {
            blocks_.push_back(std::move(spareBlocks().back()));
            spareBlocks().pop_back();
        }
        next_ = reinterpret_cast<std::uintptr_t>(blocks_.back().get());
        end_ = next_ + BLOCK_SIZE;
        return allocate(size, alignment);
    }

    std::uintptr_t next_ = 0;
    std::uintptr_t end_ = 0;
    std::vector<Block> blocks_;
    std::vector<Block> large_; ///< what does not fit a block
};

} // namespace tarn
