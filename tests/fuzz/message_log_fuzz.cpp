// The text of a message log, of any bytes.

#include "checked_log_fuzz.hpp"
#include "memory_files.hpp"
#include "runner/message_log.hpp"

namespace tarnwick {
namespace {

std::size_t linesRead(std::string_view text) {
    std::size_t whole = 0;
    const LogFaults faults = readMessageLog(MemoryFiles(text), "C:\\state\\messages.log",
                                            [&](const MessageLogLine&) { ++whole; });
    return whole + faults.damaged;
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    tryLog(data, size, messageLogTitle, linesRead, parseMessageLogLine, messageLogLineText);
    return 0;
}
