#include "aliases.hpp"

#include "common/text.hpp"
#include "tool_failure.hpp"
#include "tool_files.hpp"

#include <algorithm>

namespace demo {

Aliases::Aliases(const std::string& path, Language language) {
    std::size_t number = 0;
    for (const auto& whole : readLines(path, language)) {
        ++number;
        const auto line = tarnwick::trim(whole);
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        const auto sign = line.find('=');
        const auto name = tarnwick::trim(line.substr(0, sign));
        const auto* const rule = sign == std::string_view::npos
                                     ? nullptr
                                     : findElementLoosely(tarnwick::trim(line.substr(sign + 1)));
        if (rule == nullptr || name.empty()) {
            throw ToolFailure(Status::Unreadable,
                              say(language, Message::BadAliasLine, {path, std::to_string(number)}));
        }
        aliases_.push_back({std::string(name), rule});
    }
}

const ElementRule* Aliases::find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        aliases_, [name](const auto& alias) { return sameNameLoosely(alias.name, name); });
    return found == aliases_.end() ? nullptr : found->rule;
}

} // namespace demo
