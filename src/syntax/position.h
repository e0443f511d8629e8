#pragma once

namespace tarn {

/// A place in a source text: `line * 1024 + column`, both counted from 1. Columns count bytes of the decoded text, so
/// that a tab is one column and a character that was decoded to an escape is six. A column from 1024 up runs over into
/// the line, and a line from 4194304 up is cut to 22 bits.
using Position = int;

constexpr Position NO_POSITION = 0;

constexpr int lineOf(Position position) {
    return static_cast<int>(static_cast<unsigned>(position) >> 10);
}
constexpr int columnOf(Position position) {
    return position & 1023;
}

/// For any line and column; wraps around instead of overflowing.
constexpr Position makePosition(unsigned line, unsigned column) {
    return static_cast<Position>((line << 10) + column);
}

} // namespace tarn
