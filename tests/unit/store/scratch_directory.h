#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tarn::test {

/// A directory of its own for one test, gone when the test is over.
class ScratchDirectory {
public:
    ScratchDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

    /// Writes a file, past what is under test.
    std::string put(std::string_view name, std::string_view contents) const {
        std::string path = *this / name;
        std::ofstream(path, std::ios::binary) << contents;
        return path;
    }

    [[nodiscard]] std::string get(std::string_view name) const {
        std::ifstream in(*this / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    std::string path_;
};

} // namespace tarn::test
