#include "deps/listing.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace tarn {

namespace {

/// A garbled name must not break the line that it stands in.
std::string text(const Name* name) {
    std::string_view bytes = name->view();
    bool isPlain = std::none_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0 && c < ' '; });
    return isPlain ? name->toString() : name->toAscii();
}

std::string hexadecimal(std::int32_t value) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08x", static_cast<unsigned>(value));
    return digits;
}

std::string asLastSeen(Date date, std::int32_t fprint) {
    return " date " + dateText(date) + " fingerprint " + hexadecimal(fprint);
}

/// The members used of one import, each with its class: fields, and methods with "()" behind them.
template <class Visit>
void forEachRef(const ImportRecord& import, Visit visit) {
    std::string prefix = text(import.name) + ".";
    for (const DefRecord* ref : import.varrefs.nodes()) visit(prefix + text(ref->name), "", *ref);
    for (const DefRecord* ref : import.funrefs.nodes()) visit(prefix + text(ref->name), "()", *ref);
}

void addSource(std::vector<std::string>& lines, const Name* package, const SourceRecord& source) {
    std::string subject = "source " + text(package) + "/" + text(source.name);
    lines.push_back(subject + " date " + dateText(source.date));
    for (const Name* def : source.defs) lines.push_back(subject + " defines " + text(def));
    for (const Name* import : source.imports) lines.push_back(subject + " imports " + text(import));
}

void addClass(std::vector<std::string>& lines, const ClassRecord& c) {
    std::string subject = "class " + text(c.name);
    lines.push_back(subject + asLastSeen(c.date, c.fprint));
    if (c.sourceName != nullptr)
        lines.push_back(subject + " source " + text(c.sourceName) + " date " + dateText(c.sourceDate));
    if (c.superclass != nullptr) lines.push_back(subject + " extends " + text(c.superclass->name));
    for (const ImportRecord* i : c.interfaces) lines.push_back(subject + " implements " + text(i->name));
    for (const ImportRecord* import : c.imps.nodes()) {
        lines.push_back(subject + " imports " + text(import->name) + asLastSeen(import->date, import->fprint));
        forEachRef(*import, [&](const std::string& member, const char* parentheses, const DefRecord& ref) {
            lines.push_back(subject + " uses " + member + parentheses + " fingerprint " + hexadecimal(ref.fprint));
        });
    }
}

} // namespace

std::string dateText(Date date) {
    using namespace std::chrono;
    if (date == 0) return "unknown";
    constexpr Date UNITS_PER_DAY = 43200;
    constexpr Date DAYS_OF_1601 = 134774; // before 1970
    Date day = date / UNITS_PER_DAY - DAYS_OF_1601;
    if (date < 0 || day > 100 * 366 * 100) return std::to_string(date);
    year_month_day when{sys_days{days{static_cast<int>(day)}}};
    auto second = static_cast<int>(date % UNITS_PER_DAY * 2);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(when.year()),
                  static_cast<unsigned>(when.month()), static_cast<unsigned>(when.day()), second / 3600,
                  second / 60 % 60, second % 60);
    return buffer;
}

std::vector<std::string> factsOf(const DependencyHeader& header, const DependencyRecords& records) {
    std::vector<std::string> lines;
    lines.push_back("package " + text(header.package) + (header.stable == 1 ? " stable" : " not stable") + " written " +
                    dateText(header.writeDate));
    for (const SourceRecord& source : records.sources) addSource(lines, header.package, source);
    for (const ClassRecord& c : records.classes) addClass(lines, c);
    return lines;
}

std::vector<std::string> usersOf(std::string_view member, const DependencyRecords& records) {
    std::vector<std::string> lines;
    for (const ClassRecord& c : records.classes) {
        for (const ImportRecord* import : c.imps.nodes()) {
            forEachRef(*import, [&](const std::string& full, const char* parentheses, const DefRecord& ref) {
                if (member == full || member == text(ref.name))
                    lines.push_back(text(c.name) + " " + full + parentheses);
            });
        }
    }
    return lines;
}

} // namespace tarn
