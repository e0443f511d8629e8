#pragma once

#include "store/store.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <zlib.h>

namespace tarn::test {

/// Puts a zip file together in memory, member by member.
class ZipWriter {
public:
    struct Member {
        std::string name;
        std::string contents;
        bool deflated = false;
        std::uint32_t dosTime = 0x28210000; ///< 2000-01-01 00:00
        std::uint16_t flags = 0;
        std::string localExtra = {};
        std::string centralExtra = {};
    };

    ZipWriter& add(const Member& member) {
        std::string data = member.deflated ? deflate(member.contents) : member.contents;
        auto offset = static_cast<std::uint32_t>(file_.size());
        std::string common;
        put16(common, member.flags);
        put16(common, member.deflated ? 8 : 0);
        put32(common, member.dosTime);
        put32(common, 0); // CRC
        std::string sizes;
        put32(sizes, static_cast<std::uint32_t>(data.size()));
        put32(sizes, static_cast<std::uint32_t>(member.contents.size()));

        file_ += std::string("PK\3\4\24\0", 6) + common;
        // A writer that does not know the sizes beforehand leaves them out here.
        file_ += std::string(8, '\0');
        put16(file_, member.name.size());
        put16(file_, member.localExtra.size());
        file_ += member.name + member.localExtra + data;

        directory_ += std::string("PK\1\2\24\0\24\0", 8) + common + sizes;
        put16(directory_, member.name.size());
        put16(directory_, member.centralExtra.size());
        directory_ += std::string(10, '\0'); // comment, disk, attributes
        put32(directory_, offset);
        directory_ += member.name + member.centralExtra;
        ++count_;
        return *this;
    }

    [[nodiscard]] std::string finish(const std::string& comment = {}) const {
        std::string end = std::string("PK\5\6\0\0\0\0", 8);
        put16(end, count_);
        put16(end, count_);
        put32(end, static_cast<std::uint32_t>(directory_.size()));
        put32(end, static_cast<std::uint32_t>(file_.size()));
        put16(end, comment.size());
        return file_ + directory_ + end + comment;
    }

private:
    static void put16(std::string& to, std::size_t value) {
        to += static_cast<char>(value);
        to += static_cast<char>(value >> 8);
    }
    static void put32(std::string& to, std::uint32_t value) {
        put16(to, value & 0xFFFF);
        put16(to, value >> 16);
    }

    static std::string deflate(const std::string& contents) {
        z_stream stream{};
        deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
        std::string result(deflateBound(&stream, contents.size()), '\0');
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(contents.data()));
        stream.avail_in = static_cast<uInt>(contents.size());
        stream.next_out = reinterpret_cast<Bytef*>(result.data());
        stream.avail_out = static_cast<uInt>(result.size());
        ::deflate(&stream, Z_FINISH);
        result.resize(stream.total_out);
        deflateEnd(&stream);
        return result;
    }

    std::string file_;
    std::string directory_;
    std::size_t count_ = 0;
};

} // namespace tarn::test
