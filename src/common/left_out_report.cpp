#include "common/left_out_report.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"

#include <string>

namespace tarnwick {
namespace {

constexpr const char* noPlace = "its name has no place in the system's code page";
constexpr const char* noPlaces = "their names have no place in the system's code page";

// "The file "a" in the folder "f" is left out: its name is odd." or "3 files in the folder "f" are
// left out: their names are odd." and the first of them.
std::string sentence(const LeftOut& leftOut, const std::string& kind, const std::string& where,
                     const std::string& singularWhy, const std::string& pluralWhy) {
    if (leftOut.count == 1) {
        return "The " + kind + " " + quoted(leftOut.first) + where +
               " is left out: " + singularWhy + ".";
    }
    return std::to_string(leftOut.count) + " " + kind + "s" + where +
           " are left out: " + pluralWhy + "." + std::string(lineEnd) + "The first of them is " +
           quoted(leftOut.first) + ".";
}

} // namespace

void tellLeftOut(Desktop& desktop, const LeftOut& leftOut, std::string_view kind,
                 std::string_view folder) {
    if (leftOut.count > 0) {
        showWarning(desktop, sentence(leftOut, std::string(kind),
                                      " in the folder " + quoted(folder), noPlace, noPlaces));
    }
}

void tellNamelessPaths(Desktop& desktop, const LeftOut& leftOut) {
    if (leftOut.count > 0) {
        showWarning(desktop, sentence(leftOut, "path", "", noPlace, noPlaces));
    }
}

void tellRefused(Desktop& desktop, const LeftOut& records, const LeftOut& products) {
    std::string text;
    if (records.count > 0) {
        text = sentence(records, "record", "", "its name cannot stand in a command",
                        "their names cannot stand in a command");
    }
    if (products.count > 0) {
        text.append(text.empty() ? "" : lineEnd);
        text.append(sentence(products, "product", "", R"(its path holds a "%" or a "^")",
                             R"(their paths hold a "%" or a "^")"));
    }
    if (!text.empty()) {
        showWarning(desktop, text);
    }
}

} // namespace tarnwick
