#include "classlib/dependency_members.h"

#include "driver/reporter.h"
#include "make/maker.h"
#include "store/path_list.h"

#include <utility>

namespace tarn::classlib {

namespace {

/// Nothing is compiled here, and nobody is told.
class NobodyListens final : public MakeListener {
public:
    bool parsing(Maker&, const Store&) override { return true; }
    bool needsCompile(Maker&, const Store&, const std::string&) override { return false; }
    void classUpdated(Maker&, Name*) override {}
};

} // namespace

std::vector<ArchiveMember> describePackages(const std::string& archive, const std::vector<std::string>& packages) {
    NobodyListens listener;
    SilentReporter reporter;
    Maker maker(listener);
    maker.setClassPath(parsePathList(archive));
    maker.setReporter(&reporter);
    std::vector<Bytes> files = maker.describeLibrary(packages);
    std::vector<ArchiveMember> members;
    for (std::size_t i = 0; i < packages.size(); i++) {
        std::string name = dependencyFileStem(Name::fromString(packages[i])).append(DEPENDENCY_EXTENSION);
        members.push_back({.name = std::move(name), .data = std::move(files[i])});
    }
    return members;
}

} // namespace tarn::classlib
