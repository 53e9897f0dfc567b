#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

// One of several equal parts of a definition's records, for several machines at once.
struct Share {
    std::uint32_t number = 1; // 1 to count
    std::uint32_t count = 1;

    bool operator==(const Share&) const = default;
};

// Which of so many shares a record is in, by its name as the run log has it: the same on every
// machine and for ever, whatever other records there are (docs/cluster.md says how).
[[nodiscard]] std::uint32_t shareOf(std::string_view record, std::uint32_t count) noexcept;

[[nodiscard]] bool isIn(const Share& share, std::string_view record) noexcept;

// Of "3/8"; nothing where the text is no such thing.
[[nodiscard]] std::optional<Share> parseShare(std::string_view text);

// "3 of 8".
[[nodiscard]] std::string wordsOf(const Share& share);

// The value of a variable, empty where it is not set.
using Environment = std::function<std::string(std::string_view name)>;

// The share that an engine gives this process: its task of a Slurm array, else what TARNWICK_SHARD
// says. Raises 321, with a sentence, where neither says it.
[[nodiscard]] Share shareOfEnvironment(const Environment& environment);

// "Slurm job 12_3": the job that this process is, where an engine says so; else empty.
[[nodiscard]] std::string jobOfEnvironment(const Environment& environment);

// The files of a state folder. Without a share, they are those of runs over all records.
[[nodiscard]] std::string logNameOf(const std::optional<Share>& share);
[[nodiscard]] std::string lockNameOf(const std::optional<Share>& share);

// The runs that a file belongs to: those of a share, or those over all records.
struct RunsOf {
    std::optional<Share> share;

    bool operator==(const RunsOf&) const = default;
};

// Whose log or lock that is; nothing where the name is no such file's.
[[nodiscard]] std::optional<RunsOf> ownerOfLog(std::string_view name);
[[nodiscard]] std::optional<RunsOf> ownerOfLock(std::string_view name);

} // namespace tarnwick
