#include "processing/commands/record_names.hpp"

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

// The small raised digits count too.
bool isPortDigit(std::string_view digit, const CodePage& codePage) noexcept {
    if (codePage.isUtf8() && digit.starts_with('\xC2')) {
        digit.remove_prefix(1);
    }
    constexpr std::string_view digits = "123456789\xB9\xB2\xB3";
    return digit.size() == 1 && digits.contains(digit.front());
}

template <typename Condition>
void refuseWhere(std::vector<std::string>& records, LeftOut& refused, const Condition& isUnsafe) {
    std::erase_if(records, [&](const std::string& record) {
        if (!isUnsafe(record)) {
            return false;
        }
        leaveOut(shownName(record), refused);
        return true;
    });
}

// Without a folder before it, such a name would be an option of the tool.
void refuseOptions(std::vector<std::string>& records, LeftOut& refused) {
    refuseWhere(records, refused,
                [](const std::string& record) { return record.starts_with('-'); });
}

// Whether the path is refused; it is then counted.
bool refusePath(std::string_view folder, std::string_view extension, LeftOut& refused) {
    std::string path = joinPath(folder, "*", extension);
    if (systemCodePage().findFirstOf(path, "%^") == std::string::npos) {
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

bool isPlainName(std::string_view record, const CodePage& codePage) noexcept {
    constexpr std::string_view impossible = R"("<>|*?:/\)";
    return !record.empty() && std::ranges::none_of(record, isControl) &&
           codePage.findFirstOf(record, impossible) == std::string_view::npos;
}

bool staysName(std::string_view record, const CodePage& codePage) noexcept {
    return isPlainName(record, codePage) &&
           codePage.findFirstOf(record, "%^") == std::string_view::npos;
}

bool leadsElsewhere(std::string_view record, const CodePage& codePage) noexcept {
    if (record.ends_with('.') || record.ends_with(' ')) {
        return true;
    }
    // Blanks before the extension do not count.
    const std::string_view stem = trim(record.substr(0, record.find('.')));
    for (const std::string_view device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"}) {
        if (equalIgnoringCase(stem, device)) {
            return true;
        }
    }
    const std::string_view port = stem.substr(0, 3);
    return (equalIgnoringCase(port, "COM") || equalIgnoringCase(port, "LPT")) &&
           isPortDigit(stem.substr(3), codePage);
}

LeftOut refuseUnsafeNames(std::vector<std::string>& records) {
    LeftOut refused;
    refuseWhere(records, refused, [](const std::string& record) {
        return !staysName(record) || leadsElsewhere(record);
    });
    return refused;
}

Refused refuseUnsafe(BatchDefinition& definition, std::vector<std::string>& records) {
    Refused refused{.records = refuseUnsafeNames(records), .products = {}};
    if (definition.bCfgNamesOutput) { // the tools choose the paths, and get the bare names
        refuseOptions(records, refused.records);
        return refused;
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
