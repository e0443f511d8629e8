#include "store/file_date.h"

#include "store/directory_store.h"
#include "unit/store/scratch_directory.h"

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tarn {
namespace {

/// Units of two seconds from 1601-01-01 to 1970-01-01: 369 years of which 89 are leap years.
constexpr Date EPOCH = (369LL * 365 + 89) * 43200;

/// Runs a test in another time zone.
class ScopedZone {
public:
    explicit ScopedZone(const char* zone) {
        if (const char* before = std::getenv("TZ")) before_ = before;
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~ScopedZone() {
        if (before_.empty())
            ::unsetenv("TZ");
        else
            ::setenv("TZ", before_.c_str(), 1);
        ::tzset();
    }

private:
    std::string before_;
};

Date dateOfFileModifiedAt(std::int64_t seconds, long nanoseconds) {
    test::ScratchDirectory directory;
    std::string path = directory.put("A.java", "");
    timespec times[2] = {{0, 0}, {seconds, nanoseconds}};
    EXPECT_EQ(0, ::utimensat(AT_FDCWD, path.c_str(), times, 0));
    return DirectoryStore(path).date();
}

// The zones' rules are written out, so that no zone data need be installed. Each test has moments of its own: the
// offsets of quarters of an hour are remembered for the process.

TEST(FileDate, OddSecondsCountForTheNextEvenOne) {
    ScopedZone zone("UTC0");
    EXPECT_EQ(EPOCH + 500000000, dateOfFileModifiedAt(1000000000, 0));
    EXPECT_EQ(EPOCH + 500000001, dateOfFileModifiedAt(1000000001, 0));
    EXPECT_EQ(EPOCH + 500000001, dateOfFileModifiedAt(1000000002, 0));
    EXPECT_EQ(EPOCH + 500000000, dateOfFileModifiedAt(1000000000, 999999999));
    EXPECT_EQ(EPOCH, dateOfFileModifiedAt(-1, 0));
}

TEST(FileDate, CountsLocalTimeAsItWasAtThatMoment) {
    ScopedZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    // 1999-03-28 01:00 UTC is when the clocks went from 02:00 to 03:00.
    constexpr std::int64_t CHANGE = 922582800;
    EXPECT_EQ(EPOCH + (CHANGE - 2 + 3600) / 2, dateOfUnixTime(CHANGE - 2));
    EXPECT_EQ(EPOCH + (CHANGE + 7200) / 2, dateOfUnixTime(CHANGE));
    EXPECT_EQ(EPOCH + (CHANGE - 2 + 3600) / 2, dateOfUnixTime(CHANGE - 2));
}

TEST(FileDate, AFileHasTheDateOfItsCopyInAnArchive) {
    ScopedZone zone("NPT-5:45");
    // 2004-02-29 12:34:56 in Nepal.
    constexpr std::uint32_t PACKED = (24u << 9 | 2 << 5 | 29) << 16 | (12 << 11 | 34 << 5 | 28);
    std::int64_t moment = 1078058096 - (5 * 60 + 45) * 60;
    EXPECT_EQ(dateOfDosTime(PACKED), dateOfFileModifiedAt(moment, 0));
    EXPECT_EQ(dateOfDosTime(PACKED), dateOfFileModifiedAt(moment - 1, 0));
    EXPECT_NE(dateOfDosTime(PACKED), dateOfFileModifiedAt(moment + 1, 0));
}

TEST(FileDate, OnlyRealDosDatesCount) {
    struct Row {
        unsigned year, month, day, hour, minute, twoSeconds;
        bool valid;
    };
    for (const Row& row :
         {Row{0, 1, 1, 0, 0, 0, true}, Row{127, 12, 31, 23, 59, 29, true}, Row{20, 2, 29, 0, 0, 0, true},
          Row{21, 2, 29, 0, 0, 0, false}, Row{120, 2, 29, 0, 0, 0, false}, Row{0, 0, 1, 0, 0, 0, false},
          Row{0, 13, 1, 0, 0, 0, false}, Row{0, 1, 0, 0, 0, 0, false}, Row{0, 4, 31, 0, 0, 0, false},
          Row{0, 1, 1, 24, 0, 0, false}, Row{0, 1, 1, 0, 60, 0, false}, Row{0, 1, 1, 0, 0, 30, false}}) {
        std::uint32_t packed =
            (row.year << 9 | row.month << 5 | row.day) << 16 | row.hour << 11 | row.minute << 5 | row.twoSeconds;
        EXPECT_EQ(row.valid, dateOfDosTime(packed) != NO_DATE) << std::hex << packed;
    }
    constexpr Date DAYS_TO_1980 = 10 * 365 + 2;
    EXPECT_EQ(EPOCH + DAYS_TO_1980 * 43200, dateOfDosTime((1 << 5 | 1) << 16));
}

TEST(FileDate, WhatIsNoFileHasNone) {
    test::ScratchDirectory directory;
    EXPECT_EQ(NO_DATE, DirectoryStore(directory / "none").date());
    EXPECT_EQ(NO_DATE, DirectoryStore(directory.path()).date());
}

} // namespace
} // namespace tarn
