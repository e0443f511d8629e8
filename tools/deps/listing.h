#pragma once

#include "make/dependency_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// The facts of one dependency file, one line each; docs/dependency-files.md tells their forms.
std::vector<std::string> factsOf(const DependencyHeader& header, const DependencyRecords& records);

/// A line for each class of the file that uses a member of that name: the class, and the member with its class.
/// `member` is a simple name, or one with its class before it.
std::vector<std::string> usersOf(std::string_view member, const DependencyRecords& records);

/// A date as local time, "1998-03-01 12:00:00"; "unknown" for 0, and the number itself if it is no such time.
std::string dateText(Date date);

} // namespace tarn
