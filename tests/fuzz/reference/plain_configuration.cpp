#include "reference/plain_configuration.hpp"

#include "platform/case_folding.hpp"
#include "reference/plain_text.hpp"

#include <string>

namespace tarnwick::reference {

ConfigurationEntries configurationEntries(std::string_view text) {
    std::string lines(text);
    replaceAll(lines, "\r\n", "\r");
    ConfigurationEntries entries;
    for (const std::string& line : split(lines, "\r")) {
        const std::string bare = trimmed(line);
        const std::string upper = upperCase(bare);
        entries.namesInput = entries.namesInput || upper == "INPUT" ||
                             bare.find("input\n") != std::string::npos ||
                             bare.find("\ninput\n") != std::string::npos;
        entries.namesOutput = entries.namesOutput || upper == "OUTPUT" ||
                              bare.find("\noutput\n") != std::string::npos;
    }
    return entries;
}

} // namespace tarnwick::reference
