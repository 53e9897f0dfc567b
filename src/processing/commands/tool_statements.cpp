#include "processing/commands/tool_statements.hpp"

#include "common/text.hpp"

#include <array>
#include <span>
#include <utility>

namespace tarnwick {
namespace {

using Translation = std::pair<std::string_view, std::string_view>;

constexpr std::array<Translation, 10> options{{{"Config", "-c"},
                                               {"Error", "-e"},
                                               {"Text", "-t"},
                                               {"html", "-h"},
                                               {"faq", "-f"},
                                               {"sgml", "-s"},
                                               {"xml", "-x"},
                                               {"dif", "-d"},
                                               {"info_file", "-i"},
                                               {"leftovers", "-e"}}};

constexpr std::array<Translation, 6> languages{{{"", "en"},
                                                {"English", "en"},
                                                {"Spanish", "es"},
                                                {"Catalan", "ca"},
                                                {"Indonesian", "id"},
                                                {"French", "fr"}}};

std::string_view translate(std::span<const Translation> table, std::string_view text) {
    for (const auto& [known, translation] : table) {
        if (equalIgnoringCase(text, known)) {
            return translation;
        }
    }
    return text;
}

} // namespace

std::string sGetOptFromFileType(std::string_view sFileType) {
    return std::string(translate(options, sFileType));
}

std::string sGetLanguage(const BatchDefinition& definition) {
    return std::string(translate(languages, definition.sLanguage));
}

} // namespace tarnwick
