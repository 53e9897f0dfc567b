#include "runner/passed_over.hpp"

#include "common/full_path.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"

#include <algorithm>

namespace tarnwick {
namespace {

bool isAmong(std::string_view type, std::span<const OutputType> types) {
    return std::ranges::any_of(
        types, [&](const OutputType& known) { return equalIgnoringCase(known.name, type); });
}

bool isAsked(std::string_view type, const BatchDefinition& definition) {
    return (definition.iProcessMP == checked && isAmong(type, mpOutputTypes)) ||
           (definition.iProcessCNS == checked && isAmong(type, cnsOutputTypes));
}

std::string remarkOn(const PassedOverEntry& entry, const BatchDefinition& definition) {
    constexpr std::string_view product = "GRID_";
    if (equalIgnoringCase(std::string_view(entry.key).substr(0, product.size()), product)) {
        const auto type = std::string_view(entry.key).substr(product.size());
        return isAsked(type, definition)
                   ? "The folder " + quoted(entry.value) + " does not exist: the output " +
                         quoted(type) + " is not made."
                   : "";
    }
    if (equalIgnoringCase(entry.key, "Aliases File")) {
        return "The aliases file " + quoted(entry.value) + " does not exist and is not used.";
    }
    if (equalIgnoringCase(entry.key, "Configuration File")) {
        return "The configuration file " + quoted(entry.value) + " does not exist and is not used.";
    }
    return {}; // no run begins without an input folder
}

} // namespace

std::vector<std::string> remarksOn(std::span<const PassedOverEntry> passedOver,
                                   const BatchDefinition& definition) {
    std::vector<std::string> remarks;
    for (const PassedOverEntry& entry : passedOver) {
        if (std::string remark = remarkOn(entry, definition); !remark.empty()) {
            remarks.push_back(std::move(remark));
        }
    }
    return remarks;
}

std::string valuePassedOver(std::span<const PassedOverEntry> passedOver, std::string_view key) {
    const auto found = std::ranges::find_if(passedOver, [key](const PassedOverEntry& entry) {
        return equalIgnoringCase(entry.key, key);
    });
    return found == passedOver.end() ? "" : found->value;
}

std::vector<std::string> drivesNamed(const BatchDefinition& definition,
                                     std::span<const PassedOverEntry> passedOver) {
    std::vector<std::string> paths{definition.sMPExecutable, definition.sCNSExecutable};
    std::ranges::transform(passedOver, std::back_inserter(paths), &PassedOverEntry::value);
    std::vector<std::string> drives;
    for (const std::string& path : paths) {
        const std::string drive = isFullPath(path) ? driveOf(path) : "";
        if (!drive.empty() && std::ranges::find(drives, drive) == drives.end()) {
            drives.push_back(drive);
        }
    }
    return drives;
}

} // namespace tarnwick
