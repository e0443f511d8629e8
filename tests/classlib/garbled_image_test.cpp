// A garbled image must be refused in words, or lead to a library that is as sound as any: never to a crash.

#include <gtest/gtest.h>

#include "classlib/image_source.h"
#include "classlib/library_run.h"

namespace tarn::classlib::test {

namespace {

ByteVector smallImage() {
    std::vector<NestedSource> nested = {{"java/A$N", "java/A", "N", 9}, {"java/A$1", "", "", 8}};
    std::vector<ResourceSource> resources;
    auto add = [&resources](const ClassSource& source, Compression compression = Compression::NONE) {
        resources.push_back({"java.base", source.name + ".class", modernClass(source), compression});
    };
    add({.flags = 0x21, .name = "java/lang/Object", .superclass = ""});
    add({.flags = 0x21,
         .name = "java/A",
         .superclass = "sun/B",
         .interfaces = {"java/I"},
         .fields = {{.flags = 0x19, .name = "F", .descriptor = "I", .intConstant = 5}},
         .methods = {{.flags = 1,
                      .name = "m",
                      .descriptor = "(ILjava/A$N;)V",
                      .exceptions = {"java/lang/Object"},
                      .since = "1.1"}},
         .nested = nested});
    add({.flags = 0x21, .name = "java/A$N", .nested = nested}, Compression::ZIP);
    add({.flags = 0x20, .name = "sun/B"});
    add({.flags = 0x601, .name = "java/I"});
    return runtimeImage(resources);
}

/// Whether the image was taken. Throws for a library that is not sound.
bool isTaken(const ByteVector& bytes) {
    Archive archive;
    try {
        archive = classFilesOf(RuntimeImage{Bytes(bytes)});
    } catch (const BadInput& failure) {
        EXPECT_STRNE(failure.what(), "");
        return false;
    }
    readClosedArchive(archive);
    return true;
}

} // namespace

TEST(GarbledImage, CutAtAnyLengthIsRefused) {
    ByteVector image = smallImage();
    ASSERT_TRUE(isTaken(image));
    for (std::size_t length = 0; length < image.size(); length++)
        EXPECT_FALSE(isTaken(ByteVector(image.begin(), image.begin() + static_cast<std::ptrdiff_t>(length)))) << length;
}

TEST(GarbledImage, AnyByteChangedIsRefusedOrHarmless) {
    const ByteVector image = smallImage();
    for (std::size_t i = 0; i < image.size(); i++) {
        for (unsigned change : {0x01u, 0x04u, 0x40u, 0xFFu}) {
            ByteVector changed = image;
            changed[i] ^= static_cast<std::uint8_t>(change);
            ASSERT_NO_THROW((void)isTaken(changed)) << "byte " << i << " changed by " << change;
        }
    }
}

} // namespace tarn::classlib::test
