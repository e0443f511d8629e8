#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn {

/// A growable set of non-negative ints, 64 to a word. The first word stands in the object itself, so that a method of
/// few variables allocates nothing. Including or excluding a negative number does nothing; asking for one gives false.
class Bits {
public:
    void clear() {
        first_ = 0;
        rest_.clear();
    }
    [[nodiscard]] Bits dup() const { return *this; }
    void incl(int n) {
        if (n < 0) return;
        if (n < 64)
            first_ |= std::uint64_t{1} << n;
        else
            inclRest(static_cast<unsigned>(n));
    }
    void excl(int n) {
        if (n < 0) return;
        if (n < 64)
            first_ &= ~(std::uint64_t{1} << n);
        else if (wordOf(n) < rest_.size())
            rest_[wordOf(n)] &= ~(std::uint64_t{1} << (n & 63));
    }
    [[nodiscard]] bool isMember(int n) const {
        if (n < 0) return false;
        if (n < 64) return (first_ >> n & 1) != 0;
        return wordOf(n) < rest_.size() && (rest_[wordOf(n)] >> (n & 63) & 1) != 0;
    }
    void assign(const Bits& other) { *this = other; }
    /// Keeps what `other` has too.
    void andSet(const Bits& other) {
        first_ &= other.first_;
        if (rest_.size() > other.rest_.size()) rest_.resize(other.rest_.size());
        for (std::size_t i = 0; i < rest_.size(); ++i) rest_[i] &= other.rest_[i];
    }
    /// Adds what `other` has.
    void orSet(const Bits& other) {
        first_ |= other.first_;
        if (rest_.size() < other.rest_.size()) rest_.resize(other.rest_.size());
        for (std::size_t i = 0; i < other.rest_.size(); ++i) rest_[i] |= other.rest_[i];
    }
    [[nodiscard]] bool empty() const {
        if (first_ != 0) return false;
        for (std::uint64_t word : rest_)
            if (word != 0) return false;
        return true;
    }
    /// Visits the members in ascending order.
    template <class Visit>
    void eachMember(Visit visit) const {
        eachDifference(Bits(), visit);
    }
    /// Visits in ascending order what only one of the two sets has.
    template <class Visit>
    void eachDifference(const Bits& other, Visit visit) const {
        visitWord(first_ ^ other.first_, 0, visit);
        std::size_t words = std::max(rest_.size(), other.rest_.size());
        for (std::size_t i = 0; i < words; ++i)
            visitWord((i < rest_.size() ? rest_[i] : 0) ^ (i < other.rest_.size() ? other.rest_[i] : 0),
                      static_cast<int>(i + 1) * 64, visit);
    }

private:
    template <class Visit>
    static void visitWord(std::uint64_t word, int base, Visit& visit) {
        for (; word != 0; word &= word - 1) visit(base + std::countr_zero(word));
    }
    static std::size_t wordOf(int n) { return static_cast<std::size_t>(n) / 64 - 1; }
    void inclRest(unsigned n) {
        if (rest_.size() < n / 64) rest_.resize(n / 64);
        rest_[n / 64 - 1] |= std::uint64_t{1} << (n & 63);
    }

    std::uint64_t first_ = 0;
    std::vector<std::uint64_t> rest_;
};

} // namespace tarn
