// The name table: a fixed array of buckets with chains of names, and one pool with the bytes of all of them.
//
// The pool is address space that is reserved once and made writable piece by piece, so that it grows without moving and
// a view of a name stays valid. Everything here is zero until the first name is entered: a run that needs no name pays
// nothing.

#include "syntax/name.h"

#include "runtime/arena.h"
#include "runtime/unicode.h"
#include "runtime/utf8.h"
#include "syntax/token.h"

#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <new>
#include <sys/mman.h>

namespace tarn {

class NameTable {
public:
    Name* intern(const std::uint8_t* bytes, std::size_t length, std::uint32_t hash) {
        Name* first = buckets_[hash & bucketMask];
        if (first != nullptr && matches(first, bytes, length, hash)) [[likely]]
            return first;
        return search(bytes, length, hash);
    }

private:
    static bool matches(const Name* name, const std::uint8_t* bytes, std::size_t length, std::uint32_t hash) {
        return name->hash == hash && name->length == length && sameBytes(Name::poolBase + name->index, bytes, length);
    }

    template <class Word>
    static Word load(const std::uint8_t* bytes) {
        Word word;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }

    template <class Word>
    static bool sameEnds(const std::uint8_t* a, const std::uint8_t* b, std::size_t length) {
        std::size_t last = length - sizeof(Word);
        return load<Word>(a) == load<Word>(b) && load<Word>(a + last) == load<Word>(b + last);
    }

    /// Whole words, the last of which may overlap the one before: most names take two compares.
    static bool sameBytes(const std::uint8_t* a, const std::uint8_t* b, std::size_t length) {
        if (length >= 8) {
            if (length > 16) return std::memcmp(a, b, length) == 0;
            return sameEnds<std::uint64_t>(a, b, length);
        }
        if (length >= 4) return sameEnds<std::uint32_t>(a, b, length);
        if (length >= 2) return sameEnds<std::uint16_t>(a, b, length);
        return length == 0 || *a == *b;
    }

    /// Looks behind the head of the chain. What is found moves to the head, where the next search for it ends: a text
    /// uses few names again and again.
    Name* search(const std::uint8_t* bytes, std::size_t length, std::uint32_t hash) {
        Name*& bucket = buckets_[hash & bucketMask];
        for (Name* before = bucket; before != nullptr && before->next != nullptr; before = before->next) {
            Name* found = before->next;
            if (!matches(found, bytes, length, hash)) continue;
            before->next = found->next;
            found->next = bucket;
            return bucket = found;
        }
        return enter(bytes, length, hash);
    }

    Name* enter(const std::uint8_t* bytes, std::size_t length, std::uint32_t hash) {
        // The empty name takes a byte too, so that its index is its own.
        std::size_t room = length == 0 ? 1 : length;
        if (Name::poolBase == nullptr) {
            open();
            return intern(bytes, length, hash);
        }
        if (room > writable_ - end_) grow(room);
        Name*& bucket = buckets_[hash & bucketMask];
        Name* name =
            names_.make<Name>(static_cast<std::uint32_t>(end_), static_cast<std::uint32_t>(length), hash, bucket);
        if (length != 0) std::memcpy(Name::poolBase + end_, bytes, length);
        end_ += room;
        bucket = name;
        return name;
    }

    void open() {
        for (reserved_ = largestPool; reserved_ >= firstPool; reserved_ /= 2) {
            void* base = ::mmap(nullptr, reserved_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
            if (base == MAP_FAILED) continue;
            Name::poolBase = static_cast<std::uint8_t*>(base);
            grow(firstPool);
            enterTokenSpellings();
            return;
        }
        throw std::bad_alloc();
    }

    /// Makes room for so many bytes behind `end_`.
    void grow(std::size_t room) {
        if (room > reserved_ - end_) throw std::bad_alloc();
        std::size_t wanted = std::bit_ceil(end_ + room);
        if (wanted < firstPool) wanted = firstPool;
        if (::mprotect(Name::poolBase, wanted, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
        writable_ = wanted;
    }

    static constexpr std::uint32_t bucketMask = 0x3FFF;
    static constexpr std::size_t firstPool = std::size_t{1} << 20;
    static constexpr std::size_t largestPool = std::size_t{1} << 31;

    std::array<Name*, bucketMask + 1> buckets_{};
    Arena names_;
    std::size_t reserved_ = 0;
    std::size_t writable_ = 0;
    std::size_t end_ = 0;
};

namespace {

/// Where texts are put together before they are interned; kept and grown by doubling.
class Scratch {
public:
    /// At least `size` bytes, whose old contents are lost.
    std::uint8_t* take(std::size_t size) {
        if (size > size_) {
            size_ = std::bit_ceil(size < 4096 ? 4096 : size);
            bytes_ = std::make_unique_for_overwrite<std::uint8_t[]>(size_);
        }
        return bytes_.get();
    }

private:
    std::unique_ptr<std::uint8_t[]> bytes_;
    std::size_t size_ = 0;
};

constinit NameTable table;
constinit Scratch scratch;

/// Writes one UTF-16 unit in the class-file form.
std::uint8_t* putUnit(std::uint8_t* out, unsigned unit) {
    if (unit - 1 < 0x7F) {
        *out++ = static_cast<std::uint8_t>(unit);
    } else if (unit < 0x800) {
        *out++ = static_cast<std::uint8_t>(0xC0 | unit >> 6);
        *out++ = static_cast<std::uint8_t>(0x80 | (unit & 0x3F));
    } else {
        *out++ = static_cast<std::uint8_t>(0xE0 | unit >> 12);
        *out++ = static_cast<std::uint8_t>(0x80 | (unit >> 6 & 0x3F));
        *out++ = static_cast<std::uint8_t>(0x80 | (unit & 0x3F));
    }
    return out;
}

/// Reads `u...uXXXX` at `in`. Moves `in` behind it and returns the unit; if it is no such thing, returns -1.
int readUnicodeEscape(const std::uint8_t*& in, const std::uint8_t* end) {
    const std::uint8_t* at = in;
    while (at != end && *at == 'u') at++;
    if (end - at < 4) return -1;
    int unit = 0;
    for (int i = 0; i < 4; i++) {
        int digit = digitValue(at[i], 16);
        if (digit < 0) return -1;
        unit = unit << 4 | digit;
    }
    in = at + 4;
    return unit;
}

/// The unit that an escape stands for, `in` being behind its backslash and before `end`.
unsigned readEscape(const std::uint8_t*& in, const std::uint8_t* end) {
    if (*in == 'u') {
        int unit = readUnicodeEscape(in, end);
        return unit >= 0 ? static_cast<unsigned>(unit) : *in++;
    }
    switch (std::uint8_t byte = *in++) {
    case 'n': return '\n';
    case 't': return '\t';
    case 'b': return '\b';
    case 'r': return '\r';
    case 'f': return '\f';
    default: return byte;
    }
}

/// The next unit of a source text. A backslash at the end stands for itself.
unsigned readSourceUnit(const std::uint8_t*& in, const std::uint8_t* end) {
    std::uint8_t byte = *in++;
    return byte == '\\' && in != end ? readEscape(in, end) : byte;
}

/// The unit of the next group of class-file UTF-8. Trusts continuation bytes; a group that the end cuts off counts as
/// the value of its first byte.
unsigned readUnit(const std::uint8_t*& in, const std::uint8_t* end) {
    unsigned first = *in;
    std::ptrdiff_t size = first < 0xC0 ? 1 : first < 0xE0 ? 2 : 3;
    if (size == 1 || size > end - in) {
        in++;
        return first;
    }
    unsigned unit =
        size == 2 ? (first & 0x1F) << 6 | (in[1] & 0x3F) : (first & 0x0F) << 12 | (in[1] & 0x3F) << 6 | (in[2] & 0x3F);
    in += size;
    return unit;
}

/// The code point of the next group of ordinary UTF-8; a byte that starts no valid group is taken as Latin-1.
unsigned readCodePoint(const std::uint8_t*& in, const std::uint8_t* end) {
    unsigned first = *in++;
    if (first < 0xC2 || first > 0xF4) return first;
    int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    if (end - in < more) return first;
    unsigned code = first & (0x3F >> more);
    for (int i = 0; i < more; i++) {
        if ((in[i] & 0xC0) != 0x80) return first;
        code = code << 6 | (in[i] & 0x3F);
    }
    bool overlong = more == 2 ? code < 0x800 : more == 3 && code < 0x10000;
    if (overlong || code > 0x10FFFF || isHighSurrogate(code) || isLowSurrogate(code)) return first;
    in += more;
    return code;
}

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

char upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

constinit std::uint8_t* Name::poolBase = nullptr;

Name* Name::fromBytes(const std::uint8_t* bytes, std::size_t length) {
    return table.intern(bytes, length, hashOf(bytes, length));
}

Name* Name::fromSource(const std::uint8_t* bytes, std::size_t length) {
    std::uint8_t* start = scratch.take(2 * length);
    std::uint8_t* out = start;
    const std::uint8_t* end = bytes + length;
    for (const std::uint8_t* in = bytes; in != end;) out = putUnit(out, readSourceUnit(in, end));
    return fromBytes(start, static_cast<std::size_t>(out - start));
}

int Name::firstUnitOfSource(const std::uint8_t* bytes, std::size_t length) {
    return length == 0 ? -1 : static_cast<int>(readSourceUnit(bytes, bytes + length));
}

Name* Name::fromString(std::string_view utf8) {
    std::uint8_t* start = scratch.take(2 * utf8.size());
    std::uint8_t* out = start;
    const std::uint8_t* end = bytesOf(utf8) + utf8.size();
    for (const std::uint8_t* in = bytesOf(utf8); in != end;) {
        unsigned code = readCodePoint(in, end);
        if (code >= 0x10000) {
            out = putUnit(out, highSurrogate(code));
            code = lowSurrogate(code);
        }
        out = putUnit(out, code);
    }
    return fromBytes(start, static_cast<std::size_t>(out - start));
}

Name* Name::concat(std::span<Name* const> names) {
    std::size_t length = 0;
    for (const Name* name : names) length += name->length;
    std::uint8_t* start = scratch.take(length);
    std::uint8_t* out = start;
    for (const Name* name : names) {
        name->copyTo(out);
        out += name->length;
    }
    return fromBytes(start, length);
}

std::string Name::toAscii() const {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(length);
    const std::uint8_t* end = bytesOf(view()) + length;
    for (const std::uint8_t* in = bytesOf(view()); in != end;) {
        switch (unsigned unit = readUnit(in, end)) {
        case '\n': text += "\\n"; break;
        case '\t': text += "\\t"; break;
        case '\b': text += "\\b"; break;
        case '\r': text += "\\r"; break;
        case '\f': text += "\\f"; break;
        case '\\': text += "\\\\"; break;
        default:
            if (unit >= 0x20 && unit <= 0x7F) {
                text += static_cast<char>(unit);
            } else {
                text +=
                    {'\\', 'u', digits[unit >> 12], digits[unit >> 8 & 15], digits[unit >> 4 & 15], digits[unit & 15]};
            }
        }
    }
    return text;
}

std::string Name::toString() const {
    std::string text;
    text.reserve(length);
    const std::uint8_t* end = bytesOf(view()) + length;
    for (const std::uint8_t* in = bytesOf(view()); in != end;) {
        unsigned code = readUnit(in, end);
        if (isHighSurrogate(code) && in != end) {
            const std::uint8_t* behind = in;
            unsigned low = readUnit(behind, end);
            if (isLowSurrogate(low)) {
                code = characterOf(code, low);
                in = behind;
            }
        }
        appendUtf8(text, code);
    }
    return text;
}

void Name::copyTo(std::uint8_t* target) const {
    if (length != 0) std::memcpy(target, view().data(), length);
}

int Name::indexOf(char byte) const {
    std::size_t at = view().find(byte);
    return static_cast<int>(at == std::string_view::npos ? length : at);
}

int Name::lastIndexOf(char byte) const {
    std::size_t at = view().rfind(byte);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

Name* Name::subName(int start, int end) const {
    if (end <= start) return fromBytes(std::string_view{});
    return fromBytes(view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
}

Name* Name::append(const Name* tail) const {
    std::uint8_t* start = scratch.take(std::size_t{length} + tail->length);
    copyTo(start);
    tail->copyTo(start + length);
    return fromBytes(start, std::size_t{length} + tail->length);
}

bool Name::matchesFile(std::string_view fileName) const {
    std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot < length) return false;
    std::size_t start = dot - length;
    for (std::size_t i = 0; i < length; i++) {
        if (upper(view()[i]) != upper(fileName[start + i])) return false;
    }
    return start == 0 || fileName[start - 1] == '/';
}

} // namespace tarn
