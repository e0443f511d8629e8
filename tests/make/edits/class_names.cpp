#include "class_names.h"

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string_view>
#include <vector>

namespace tarn::edits {

/// Such a source has one declaration on a line, and four blanks before it for each class around it.
std::set<std::string> definedClasses(const std::string& path, const std::string& text) {
    std::set<std::string> names;
    std::vector<std::string> around;
    std::istringstream lines(text);
    std::string package = path.substr(0, path.rfind('/') + 1);
    for (std::string line; std::getline(lines, line);) {
        std::size_t depth = line.find_first_not_of(' ') / 4;
        std::istringstream words(line);
        for (std::string word; words >> word;) {
            if (word != "class" && word != "interface") continue;
            words >> word;
            around.resize(depth);
            around.push_back(depth == 0 ? package + word : around.back() + "$" + word);
            names.insert(around.back());
        }
    }
    return names;
}

std::string withoutNumbers(std::string className) {
    for (std::size_t at; (at = className.rfind('$')) != std::string::npos && std::isdigit(className[at + 1]);)
        className.resize(at);
    return className;
}

namespace {

/// The names in a descriptor, or of an array class.
void addDescriptor(std::set<std::string>& names, std::string_view descriptor) {
    for (std::size_t at = 0; (at = descriptor.find('L', at)) != std::string_view::npos;) {
        std::size_t end = descriptor.find(';', at);
        names.emplace(descriptor.substr(at + 1, end - at - 1));
        at = end;
    }
}

} // namespace

std::set<std::string> namedClasses(const std::string& classFile) {
    auto u16 = [&](std::size_t at) {
        return static_cast<std::size_t>(static_cast<std::uint8_t>(classFile[at])) << 8 |
               static_cast<std::uint8_t>(classFile[at + 1]);
    };
    std::size_t count = u16(8);
    std::vector<std::size_t> places(count);
    for (std::size_t i = 1, at = 10; i < count; i++) {
        places[i] = at;
        switch (classFile[at]) {
        case 1: at += 3 + u16(at + 1); break;
        case 5:
        case 6: at += 9, i++; break;
        case 7:
        case 8: at += 3; break;
        default: at += 5; break;
        }
    }
    auto text = [&](std::size_t i) { return std::string_view(classFile).substr(places[i] + 3, u16(places[i] + 1)); };
    std::set<std::string> names;
    for (std::size_t at : places) {
        if (at == 0 || (classFile[at] != 7 && classFile[at] != 12)) continue;
        std::string_view name = text(u16(at + (classFile[at] == 7 ? 1 : 3)));
        if (classFile[at] == 12 || name[0] == '[')
            addDescriptor(names, name);
        else
            names.emplace(name);
    }
    return names;
}

} // namespace tarn::edits
