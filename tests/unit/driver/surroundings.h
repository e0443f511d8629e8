#pragma once

#include "runtime/console.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

namespace tarn::test {

/// Puts a file in the place of a standard stream for its own life.
class ScopedStream {
public:
    explicit ScopedStream(int stream) : stream_(stream), saved_(::dup(stream)), file_(std::tmpfile()) {
        ::dup2(::fileno(file_), stream_);
    }
    ~ScopedStream() {
        ::dup2(saved_, stream_);
        ::close(saved_);
        std::fclose(file_);
    }
    ScopedStream(const ScopedStream&) = delete;
    ScopedStream& operator=(const ScopedStream&) = delete;

protected:
    std::FILE* file() { return file_; }

private:
    int stream_;
    int saved_;
    std::FILE* file_;
};

/// Standard output, collected from here on.
class CapturedOutput : ScopedStream {
public:
    CapturedOutput() : ScopedStream((flushConsole(), STDOUT_FILENO)) {}
    ~CapturedOutput() { flushConsole(); }

    /// All that has been written so far.
    std::string text() {
        flushConsole();
        std::string text;
        std::rewind(file());
        for (int byte; (byte = std::fgetc(file())) != EOF;) text.push_back(static_cast<char>(byte));
        return text;
    }
};

/// Standard input that holds just this text.
class FedInput : ScopedStream {
public:
    explicit FedInput(std::string_view text) : ScopedStream(STDIN_FILENO) {
        std::fwrite(text.data(), 1, text.size(), file());
        std::fflush(file());
        ::lseek(STDIN_FILENO, 0, SEEK_SET);
    }
};

/// Gives an environment variable another value (absent: none) for its own life.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~ScopedVariable() { set(before_); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const std::optional<std::string>& value) {
        if (value) {
            ::setenv(name_, value->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }

    const char* name_;
    std::optional<std::string> before_;
};

/// An empty directory that is the working directory for its own life.
class ScopedDirectory {
public:
    ScopedDirectory() : before_(std::filesystem::current_path()) {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-test-XXXXXX").string();
        path_ = std::filesystem::canonical(::mkdtemp(pattern.data()));
        std::filesystem::current_path(path_);
    }
    ~ScopedDirectory() {
        std::filesystem::current_path(before_);
        std::filesystem::remove_all(path_);
    }
    ScopedDirectory(const ScopedDirectory&) = delete;
    ScopedDirectory& operator=(const ScopedDirectory&) = delete;

    [[nodiscard]] std::string path() const { return path_.string(); }

    /// Writes a file below this directory; directories on the way are made.
    void write(const std::string& name, std::string_view text) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << text;
    }

private:
    std::filesystem::path before_;
    std::filesystem::path path_;
};

} // namespace tarn::test
