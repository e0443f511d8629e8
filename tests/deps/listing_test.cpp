#include "deps/listing.h"

#include "unit/make/dependency_bytes.h"

#include <gtest/gtest.h>
#include <string>

namespace tarn {
namespace {

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

class Listing : public testing::Test {
protected:
    void SetUp() override {
        DependencyDecoder decoder(bytes, arena);
        header = decoder.header();
        decoder.sourceCount();
        records = decoder.records(ImportsRead::ALL);
    }

    Arena arena;
    Bytes bytes = test::samplePackage(1).bytes;
    DependencyHeader header;
    DependencyRecords records;
};

TEST_F(Listing, TellsOneFactALine) {
    // 6250000000 steps are 144675 days and 40000 steps after 1601-01-01, so the day 9901 after 1970-01-01.
    EXPECT_EQ("package a.b stable written 1997-02-09 22:13:20\n"
              "source a.b/Outer.java date 1997-02-09 21:40:00\n"
              "source a.b/Outer.java defines a.b.Outer$In\n"
              "source a.b/Outer.java defines a.b.Outer\n"
              "source a.b/Outer.java imports java.util\n"
              "source a.b/Gone.java date unknown\n"
              "class a.b.Outer date 1997-02-09 21:56:40 fingerprint 89abcdef\n"
              "class a.b.Outer source Outer.java date 1997-02-09 21:40:00\n"
              "class a.b.Outer extends a.Base\n"
              "class a.b.Outer implements java.lang.Runnable\n"
              "class a.b.Outer imports a.Base date 1997-01-17 18:40:00 fingerprint 00000011\n"
              "class a.b.Outer uses a.Base.count fingerprint ffffffff\n"
              "class a.b.Outer uses a.Base.run() fingerprint 00000005\n"
              "class a.b.Outer imports java.lang.Runnable date unknown fingerprint 00000000\n"
              "class a.b.Outer imports a.b.Outer$In date 1997-02-09 21:56:40 fingerprint 00000012\n"
              "class a.b.Outer$In date 1997-02-09 21:56:40 fingerprint 00000012\n"
              "class a.b.Outer$In source Outer.java date 1997-02-09 21:40:00\n"
              "class a.b.Outer$In extends a.b.Outer\n"
              "class a.b.Outer$In imports a.b.Outer date 1997-02-09 21:56:40 fingerprint 00000013\n"
              "class a.b.Alien date 1996-06-23 10:40:00 fingerprint 00000014\n",
              joined(factsOf(header, records)));
}

TEST_F(Listing, FindsWhoUsesAMember) {
    for (const char* name : {"run", "a.Base.run"})
        EXPECT_EQ("a.b.Outer a.Base.run()\n", joined(usersOf(name, records)));
    EXPECT_EQ("a.b.Outer a.Base.count\n", joined(usersOf("count", records)));
    EXPECT_TRUE(usersOf("Base.run", records).empty());
}

TEST(ListingDates, AreLocalTimesOrNumbers) {
    struct Row {
        Date date;
        const char* text;
    };
    for (const Row& row :
         {Row{0, "unknown"}, Row{1, "1601-01-01 00:00:02"}, Row{134774LL * 43200, "1970-01-01 00:00:00"},
          Row{(134774LL + 10957) * 43200 + 43199, "2000-01-01 23:59:58"}, Row{-1, "-1"},
          Row{0x7FFFFFFFFFFFFFFF, "9223372036854775807"}})
        EXPECT_EQ(row.text, dateText(row.date));
}

} // namespace
} // namespace tarn
