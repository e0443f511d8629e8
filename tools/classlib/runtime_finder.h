#pragma once

#include <string>

namespace tarn::classlib {

/// The home of a Java runtime: the folder that JAVA_HOME names if its class library is there, otherwise the one that
/// the first `java` on the path belongs to. JAVA_HOME may also be where this compiler's own class library lies, so a
/// folder without an image is passed over. Throws BadInput if neither leads to a runtime.
[[nodiscard]] std::string findRuntimeHome();

/// The path of the class library image of the runtime with this home. Throws BadInput, saying what is wrong, if there
/// is none.
[[nodiscard]] std::string imageOfRuntime(const std::string& home);

} // namespace tarn::classlib
