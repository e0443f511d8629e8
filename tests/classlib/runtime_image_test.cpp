#include "classlib/runtime_image.h"

#include <gtest/gtest.h>

#include "classlib/byte_writer.h"
#include "classlib/image_source.h"
#include "classlib/resource_decompressor.h"

namespace tarn::classlib::test {

namespace {

const ByteVector content = modernClass({.flags = 0x21, .name = "java/lang/A"});

ByteVector classFile(const RuntimeImage& image, std::string_view name) {
    ByteVector storage;
    Bytes file = image.classFile(name, storage);
    return {file.begin(), file.end()};
}

std::string failureOf(const ByteVector& bytes) {
    try {
        RuntimeImage image{Bytes(bytes)};
        for (std::string_view name : image.classNames()) (void)classFile(image, name);
    } catch (const BadInput& failure) {
        return failure.what();
    }
    return "none";
}

} // namespace

TEST(RuntimeImage, ListsClassesAndGivesTheirFilesInEitherByteOrder) {
    ByteVector other = modernClass({.flags = 0x21, .name = "java/lang/B"});
    for (bool swapped : {false, true}) {
        ByteVector bytes = runtimeImage({{"java.base", "java/lang/B.class", other, Compression::ZIP},
                                         {"java.base", "java/lang/A.class", content},
                                         {"java.base", "java/lang/text.properties", {1, 2, 3}},
                                         {"java.base", "module-info.class", {4}}},
                                        swapped);
        RuntimeImage image{Bytes(bytes)};
        EXPECT_EQ(image.classNames(), (std::vector<std::string_view>{"java/lang/A", "java/lang/B", "module-info"}));
        EXPECT_EQ(classFile(image, "java/lang/A"), content);
        EXPECT_EQ(classFile(image, "java/lang/B"), other);
        EXPECT_FALSE(image.hasClass("java/lang/text"));
    }
}

TEST(RuntimeImage, TakesTheFirstModuleOfTwoThatHideTheSameClass) {
    for (bool reversed : {false, true}) {
        std::vector<ResourceSource> resources = {{"java.base", "a/A.class", {1}}, {"java.desktop", "a/A.class", {2}}};
        if (reversed) std::swap(resources[0], resources[1]);
        ByteVector bytes = runtimeImage(resources);
        EXPECT_EQ(classFile(RuntimeImage{Bytes(bytes)}, "a/A"), ByteVector{1});
    }
}

TEST(RuntimeImage, SaysWhatIsWrong) {
    const ByteVector good = runtimeImage({{"java.base", "java/lang/A.class", content}});
    auto patched = [&good](std::size_t offset, std::uint32_t value) {
        ByteVector bytes = good;
        patchWord(bytes, offset, value);
        return bytes;
    };
    struct {
        ByteVector bytes;
        std::string text;
    } rows[] = {
        {good, "none"},
        {patched(4, 1 << 16 | 7), "none"},
        {{}, "not a class library image: it is shorter than the header of one"},
        {ByteVector(200, 'x'), "not a class library image: it does not begin with the magic number CAFEDADA"},
        {patched(4, 2 << 16 | 1), "class library image of version 2.1; only 1.x can be read"},
        {patched(12, 2), "class library image is garbled: it counts more resources than slots"},
        {patched(16, 0xFFFFFFFF), "class library image is cut short: its tables end behind its end"},
        {patched(20, 0xFFFFFFFF), "class library image is cut short: its tables end behind its end"},
        {patched(24, 0xFFFFFFFF), "class library image is cut short: its tables end behind its end"},
        {patched(28 + 4, 0xFFFFFF), "class library image is garbled: a location has no end"},
        {patched(28 + 8 + 1, 0x7F000000), "class library image is garbled: a name lies outside of its strings"},
        {ByteVector(good.begin(), good.end() - 1), "class library image is cut short: a class lies behind its end"},
        {runtimeImage({{"m", "A.class", content, Compression::UNKNOWN}}),
         "it is compressed with 'brand-new'; only zip and compact-cp can be read"},
    };
    for (const auto& row : rows) EXPECT_EQ(failureOf(row.bytes), row.text);
}

TEST(RuntimeImage, OpenNamesTheFile) {
    for (const auto& [path, text] : std::map<std::string, std::string>{
             {"/no/such/file", "/no/such/file: No such file or directory"}, {"/dev", "/dev: not a regular file"}}) {
        try {
            (void)RuntimeImage::open(path);
            ADD_FAILURE();
        } catch (const BadInput& failure) {
            EXPECT_EQ(failure.what(), text);
        }
    }
}

// A pool as jlink compacts it: a text that is shared, a descriptor taken apart, a long, a class.
TEST(ResourceDecompressor, RestoresCompactedPools) {
    const std::map<std::uint32_t, std::string_view> strings = {
        {0, "compact-cp"}, {0x12, "size"}, {0x345, "(LIL)V"}, {0x678, "java/util"}, {0x20000, "List"}, {0x9, ""}};
    ByteWriter compacted, restored;
    compacted.text("\xCA\xFE\xBA\xBE");
    compacted.u4(61);
    compacted.u2(7);
    compacted.text("\x17\xB2");                     // text, 1 byte: 0x12
    compacted.text(std::string("\x19\xC3\x45", 3)); // descriptor, 2 bytes: 0x345
    compacted.text("\x8A");                         // 10 bytes of names
    compacted.text(std::string("\xC6\x78\xE2\0\0", 5));
    compacted.text(std::string("\xA9\0\2\0\0", 5)); // the package without a name; a plain word
    compacted.u1(5);
    compacted.text("longlong");
    compacted.text(std::string("\7\0\1\1\0\2hi", 8));
    compacted.text("the rest");
    restored.text("\xCA\xFE\xBA\xBE");
    restored.u4(61);
    restored.u2(7);
    restored.text(std::string("\1\0\4size\1\0\30(Ljava/util/ListILList)V", 34));
    restored.u1(5);
    restored.text("longlong");
    restored.text(std::string("\7\0\1\1\0\2hi", 8));
    restored.text("the rest");

    ByteVector resource(29);
    patchWord(resource, 0, 0xCAFEFAFA);
    std::uint32_t low = std::endian::native == std::endian::little ? 0 : 4;
    patchWord(resource, 4 + low, static_cast<std::uint32_t>(compacted.size()));
    patchWord(resource, 12 + low, static_cast<std::uint32_t>(restored.size()));
    resource.insert(resource.end(), compacted.bytes().begin(), compacted.bytes().end());
    ResourceDecompressor decompressor(false, [&strings](std::uint32_t offset) {
        auto found = strings.find(offset);
        return found == strings.end() ? throw BadInput("no string") : found->second;
    });
    ByteVector storage;
    Bytes result = decompressor.decompress(resource, restored.size(), storage);
    EXPECT_EQ(asText(result), asText(restored.bytes()));
    for (std::size_t cut = 0; cut < resource.size(); cut++)
        EXPECT_THROW((void)decompressor.decompress(Bytes(resource).first(cut), restored.size(), storage), BadInput);
}

} // namespace tarn::classlib::test
