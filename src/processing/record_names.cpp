#include "processing/record_names.hpp"

#include "common/text.hpp"

#include <algorithm>
#include <span>

namespace tarnwick {
namespace {

bool isControl(char character) noexcept {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F;
}

std::string shownName(std::string_view record) {
    std::string shown;
    for (const char character : record) {
        if (isControl(character)) {
            shown += shownByNumber(static_cast<unsigned char>(character));
        } else {
            shown += character;
        }
    }
    return shown;
}

// Whether the path is refused; it is then counted.
bool refusePath(std::string_view folder, std::string_view extension, LeftOut& refused) {
    std::string path = joinPath(folder, "*", extension);
    if (!path.contains('%')) {
        return false;
    }
    leaveOut(std::move(path), refused);
    return true;
}

void refuseRows(std::span<OutputDefinition> rows, LeftOut& refused) {
    for (OutputDefinition& row : rows) {
        if (row.bBuild && refusePath(row.sOutputFolder, row.sExtension, refused)) {
            row.bBuild = false;
        }
    }
}

} // namespace

bool staysName(std::string_view record) noexcept {
    constexpr std::string_view unsafe = R"("%<>|*?:/\)";
    return !record.empty() &&
           std::ranges::none_of(record, [&](char c) { return isControl(c) || unsafe.contains(c); });
}

LeftOut refuseUnsafeNames(std::vector<std::string>& records) {
    LeftOut refused;
    std::erase_if(records, [&refused](const std::string& record) {
        if (staysName(record)) {
            return false;
        }
        leaveOut(shownName(record), refused);
        return true;
    });
    return refused;
}

Refused refuseUnsafe(BatchDefinition& definition, std::vector<std::string>& records) {
    Refused refused{.records = refuseUnsafeNames(records), .products = {}};
    if (definition.bCfgNamesOutput) {
        return refused; // the tools choose the paths
    }
    if (definition.iProcessMP == checked) {
        refuseRows(definition.MPOutputs, refused.products);
    }
    if (definition.iProcessCNS == checked) {
        refuseRows(definition.CNSOutputs, refused.products);
        if (refusePath(definition.sCNSOutputFolder, definition.sCNSOutputExtension,
                       refused.products)) {
            records.clear();
        }
    }
    return refused;
}

} // namespace tarnwick
