#pragma once

#include <stdexcept>
#include <string>

namespace tarn {

/// A store could not be read, written or listed. The text is English and without position; callers fold it into a
/// catalogue message.
class IoFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A class can be had neither as class file nor as source. The text is the class's dotted name.
class ClassNotFound : public IoFailure {
public:
    using IoFailure::IoFailure;
};

/// The input of a converter breaks the rules of its character set. The text says how; it is not shown to users.
class MalformedInput : public IoFailure {
public:
    using IoFailure::IoFailure;
};

/// No converter goes by the name; the text is that name.
class UnsupportedEncoding : public IoFailure {
public:
    using IoFailure::IoFailure;
};

/// Ends the running compile batch. What went wrong has been reported; carries nothing.
struct CompileAbort {};

/// Ends the running pass of a make. What went wrong has been reported; carries nothing.
struct MakeAbort {};

/// A fault of the tool itself: an assertion that no input should reach. Ends the run.
class InternalError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// The user asked at the prompt to stop, or the prompt could not be read. Ends the run.
class UserAbort : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws InternalError with `text` unless `holds`. On in every build.
inline void require(bool holds, const char* text) {
    if (!holds) [[unlikely]]
        throw InternalError(text);
}

} // namespace tarn
