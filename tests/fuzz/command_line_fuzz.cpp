// A command line of any bytes: it is understood, or refused, as by a plain second version.

#include "processing/command_line.hpp"
#include "reference/plain_command_line.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tarnwick::require(tarnwick::parseCommandLine(text) == tarnwick::reference::commandLine(text),
                      "the command line says what the plain version hears");
    return 0;
}
