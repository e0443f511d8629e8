#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn::fuzz {

/// Numbers that depend on nothing but the seed, on any machine: what the standard's distributions do not promise.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9;
        z = (z ^ z >> 27) * 0x94D049BB133111EB;
        return z ^ z >> 31;
    }
    /// In 0..bound-1; 0 for a bound of 0.
    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : static_cast<std::size_t>(next() % bound); }
    bool oneIn(std::size_t n) { return below(n) == 0; }
    template <class Container>
    auto& oneOf(Container& container) {
        return container[below(container.size())];
    }

private:
    std::uint64_t state_;
};

} // namespace tarn::fuzz
