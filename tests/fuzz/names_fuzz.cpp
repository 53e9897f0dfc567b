// A name of any bytes, as a folder may hold it, on its way into command lines. Ends the program
// where it would become more than a name.

#include "platform/wildcard.hpp"
#include "processing/commands/record_names.hpp"
#include "processing/commands/tool_command.hpp"
#include "reference/plain_text.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarnwick {
namespace {

// The words of a command line between quotation marks, and what lies outside them.
struct Read {
    std::vector<std::string> quoted;
    std::string outside;
};

Read asTheInterpreterReads(const std::string& line) {
    Read read;
    bool inQuotes = false;
    for (const char character : line) {
        if (character == '"') {
            inQuotes = !inQuotes;
            if (inQuotes) {
                read.quoted.emplace_back();
            }
        } else if (inQuotes) {
            read.quoted.back() += character;
        } else {
            read.outside += character;
        }
    }
    return read;
}

// Whatever the case, and whatever comes behind the first dot.
bool isDevice(const std::string& record) {
    std::string stem = reference::trimmed(record.substr(0, record.find('.')));
    for (char& character : stem) {
        if (character >= 'a' && character <= 'z') {
            character = static_cast<char>(character - 0x20);
        }
    }
    for (const char* const device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"}) {
        if (stem == device) {
            return true;
        }
    }
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
           stem.back() >= '1' && stem.back() <= '9';
}

void tryName(const std::string& name) {
    std::vector<std::string> records{"a.met", name, "b.met"};
    const LeftOut refused = refuseUnsafeNames(records);
    require(records.size() + refused.count == 3, "every record is kept or told");
    require(refused.first.find_first_of("\r\n") == std::string::npos, "what is shown is one line");
    for (const std::string& record : records) {
        const ToolCommand command{.tool = "C:\\mp.exe",
                                  .arguments = {{ToolArgument::Kind::Input, "C:\\in\\" + record}}};
        const std::string line = batchLine(command);
        require(line.find_first_of("\r\n") == std::string::npos, "a command is one line");
        const Read read = asTheInterpreterReads(line);
        require(read.outside == "call  ", "nothing lies outside the quotation marks");
        require(read.quoted == std::vector<std::string>{"C:\\mp.exe", "C:\\in\\" + record},
                "the record is one word");
        require(record.find('\\') == std::string::npos, "no record leads to another folder");
        require(record.find_first_of("%^") == std::string::npos, "nothing is put in its place");
        require(!isDevice(record) && !record.ends_with('.') && !record.ends_with(' '),
                "the system opens that file and no other");
    }
    if (staysName(name)) {
        require(matchesWildcard(name, "*"), "a star stands for every name");
    }
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    tarnwick::tryName(bytes);
    return 0;
}
