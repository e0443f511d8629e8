#include "store/file_date.h"

#include <chrono>
#include <ctime>
#include <sys/stat.h>

namespace tarn {

namespace {

/// Seconds from 1601-01-01 to 1970-01-01.
constexpr std::int64_t EPOCH = 11644473600;

/// Seconds since 1601 to the next full unit of two.
Date unitsOf(std::int64_t seconds) {
    return (seconds + 1) >> 1;
}

/// Seconds that local time was ahead of UTC, which zones change at full quarters of an hour only: so the answer for a
/// quarter holds for all of it, and a few remembered quarters serve the files of a build, which were written together.
std::int64_t zoneOffset(std::int64_t seconds) {
    struct Quarter {
        std::int64_t number;
        std::int64_t offset;
        bool known;
    };
    constexpr std::size_t SLOTS = 64;
    static Quarter quarters[SLOTS];

    constexpr std::int64_t QUARTER = 900;
    std::int64_t number = (seconds - (seconds < 0 ? QUARTER - 1 : 0)) / QUARTER;
    Quarter& slot = quarters[static_cast<std::uint64_t>(number) % SLOTS];
    if (!slot.known || slot.number != number) {
        std::time_t start = number * QUARTER;
        std::tm local{};
        ::localtime_r(&start, &local);
        slot = {number, local.tm_gmtoff, true};
    }
    return slot.offset;
}

} // namespace

Date dateOfUnixTime(std::int64_t seconds) {
    return unitsOf(seconds + EPOCH + zoneOffset(seconds));
}

Date dateOfDosTime(std::uint32_t packed) {
    using namespace std::chrono;
    year_month_day day{year(1980 + static_cast<int>(packed >> 25)), month(packed >> 21 & 15),
                       std::chrono::day(packed >> 16 & 31)};
    unsigned hour = packed >> 11 & 31;
    unsigned minute = packed >> 5 & 63;
    unsigned twoSeconds = packed & 31;
    if (!day.ok() || hour > 23 || minute > 59 || twoSeconds > 29) return NO_DATE;
    std::int64_t days = sys_days(day).time_since_epoch().count();
    return unitsOf(EPOCH + ((days * 24 + hour) * 60 + minute) * 60 + std::int64_t{twoSeconds} * 2);
}

Date dateOfFile(const char* path) {
    struct stat status;
    if (::stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return NO_DATE;
    return dateOfUnixTime(status.st_mtim.tv_sec);
}

} // namespace tarn
