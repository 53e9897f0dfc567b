// The text of a run log, of any bytes.

#include "checked_log_fuzz.hpp"
#include "memory_files.hpp"
#include "runner/run_log.hpp"

namespace tarnwick {
namespace {

std::size_t linesRead(std::string_view text) {
    const RunHistory history = readRunLog(MemoryFiles(text), "C:\\state\\run.log");
    require(history.records.size() + history.runs.size() <= history.lines,
            "what is known was in a line");
    return history.lines + history.damaged;
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    tryLog(data, size, logTitle, linesRead, parseLogLine, logLineText);
    return 0;
}
