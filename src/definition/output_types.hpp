#pragma once

#include <array>
#include <string_view>

namespace tarnwick {

// What is fixed about one output product.
struct OutputType {
    std::string_view name;
    std::string_view defaultExtension;
    bool buildByDefault;
    std::string_view extensionKey; // of its extension in the INI file
};

// In the order of the grids' rows. The extension of "Faq" is a suffix, not a dot extension:
// rec_faq.htm stands beside rec.html.
inline constexpr auto mpOutputTypes = std::to_array<OutputType>({
    {"Error", ".err", true, "Error Extension"},
    {"Text", ".txt", false, "Text Extension"},
    {"Html", ".html", false, "Html Extension"},
    {"Faq", "_faq.htm", false, "Faq Extension"},
    {"Sgml", ".sgml", false, "Sgml Extension"},
    {"Xml", ".xml", true, "Xml Extension"},
    {"Dif", ".dif", false, "Dif Extension"},
});
inline constexpr auto cnsOutputTypes = std::to_array<OutputType>({
    {"Info_file", ".info", false, "Info Extension"},
    {"Leftovers", ".lft", false, "Leftovers Extension"},
});

} // namespace tarnwick
