#include "runner/written_files.hpp"

#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"

#include <map>

namespace tarnwick {
namespace {

constexpr std::int64_t second = 1'000'000'000;

// The oldest file systems keep every other second; then both clocks may err a little.
constexpr std::int64_t coarsest = 4 * second;

std::int64_t nanoseconds(const RunClock& clock) {
    return static_cast<std::int64_t>(clock.steadySeconds() * static_cast<double>(second));
}

// The file system's time, by a file made for that.
std::int64_t timeIn(const std::string& folder, const std::string& name, Files& files,
                    const FileStamps& stamps) {
    const std::string probe = joinPath(folder, name);
    createAnew(files, probe)->close();
    const auto stamp = stamps.stampOf(probe);
    files.remove(probe);
    return stamp ? stamp->time : 0;
}

} // namespace

WrittenFiles::WrittenFiles(const Products& products, Files& files, const FileStamps& stamps,
                           const RunClock& clock, const std::string& probe)
    : clock_(clock) {
    std::map<std::string, std::int64_t> known;
    for (const ProductKind& kind : products.kinds()) {
        const auto [folder, isNew] = known.try_emplace(upperCase(kind.folder), 0);
        if (isNew) {
            try {
                folder->second = timeIn(kind.folder, probe, files, stamps) - nanoseconds(clock);
            } catch (const RunTimeError& error) {
                faults_.push_back("Nothing can be made in the folder " + quoted(kind.folder) +
                                  ": " + error.record().description + ".");
            }
        }
        ahead_.push_back(folder->second);
    }
}

bool WrittenFiles::mayBeWritten(std::size_t kind, const std::optional<Stamp>& before,
                                const Stamp& after) const {
    if (!before || *before != after) {
        return true;
    }
    // The same size and time: it was written, if at all, within what the times cannot tell apart.
    const std::int64_t now = nanoseconds(clock_) + ahead_[kind];
    return after.time + coarsest > now && after.time < now + coarsest;
}

} // namespace tarnwick
