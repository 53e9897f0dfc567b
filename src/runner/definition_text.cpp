#include "runner/definition_text.hpp"

#include "common/full_path.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"

#include <algorithm>
#include <span>

namespace tarnwick {
namespace {

struct Entry {
    std::string_view key;
    std::string_view value;
};

// Its lines with a "=", whatever ends them.
std::vector<Entry> entriesOf(std::string_view text) {
    std::vector<Entry> entries;
    while (!text.empty()) {
        const auto line = text.substr(0, text.find_first_of("\r\n"));
        if (const auto sign = line.find('='); sign != std::string_view::npos) {
            entries.push_back(
                {.key = trim(line.substr(0, sign)), .value = trim(line.substr(sign + 1))});
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return entries;
}

bool isAmong(std::string_view type, std::span<const OutputType> types) {
    return std::ranges::any_of(
        types, [&](const OutputType& known) { return equalIgnoringCase(known.name, type); });
}

bool isAsked(std::string_view type, const BatchDefinition& definition) {
    return (definition.iProcessMP == checked && isAmong(type, mpOutputTypes)) ||
           (definition.iProcessCNS == checked && isAmong(type, cnsOutputTypes));
}

} // namespace

std::vector<std::string> outputsPassedOver(std::string_view text, const BatchDefinition& definition,
                                           const Files& files) {
    constexpr std::string_view prefix = "GRID_";
    std::vector<std::string> sentences;
    for (const auto& [key, value] : entriesOf(text)) {
        if (!equalIgnoringCase(key.substr(0, prefix.size()), prefix) || !isFullPath(value)) {
            continue;
        }
        const auto type = key.substr(prefix.size());
        if (isAsked(type, definition) && !FolderExists(files, value)) {
            sentences.push_back("The folder " + quoted(value) + " does not exist: the output " +
                                quoted(type) + " is not made.");
        }
    }
    return sentences;
}

std::vector<std::string> drivesNamed(std::string_view text) {
    std::vector<std::string> drives;
    for (const auto& [key, value] : entriesOf(text)) {
        const std::string drive = isFullPath(value) ? driveOf(value) : "";
        if (!drive.empty() && std::ranges::find(drives, drive) == drives.end()) {
            drives.push_back(drive);
        }
    }
    return drives;
}

} // namespace tarnwick
