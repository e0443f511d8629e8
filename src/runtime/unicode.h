#pragma once

namespace tarn {

// The classes of java.lang.Character for the Basic Multilingual Plane (Unicode 13, from JDK 17).

/// Whether the UTF-16 unit may start a Java identifier.
bool isJavaIdentifierStart(char16_t unit);
/// Whether it may stand in one behind the start; holds for all that may start one.
bool isJavaIdentifierPart(char16_t unit);

} // namespace tarn
