#include "runner/share.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/hash.hpp"

#include <charconv>

namespace tarnwick {
namespace {

constexpr std::string_view allRecordsLog = "run.log";
constexpr std::string_view allRecordsLock = "lock";
constexpr std::string_view shareBeginning = "share-";
constexpr std::string_view between = "-of-";
constexpr std::string_view logEnd = ".log";
constexpr std::string_view lockEnd = ".lock";

// Of digits alone, without a zero before them: each number is written in one way.
std::optional<std::uint32_t> numberOf(std::string_view digits) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && std::to_string(number) == digits ? std::optional(number) : std::nullopt;
}

std::optional<Share> shareOf(std::string_view number, std::string_view count) {
    const auto one = numberOf(number);
    const auto all = numberOf(count);
    return one && all && *one >= 1 && *one <= *all
               ? std::optional(Share{.number = *one, .count = *all})
               : std::nullopt;
}

std::string fileNameOf(const Share& share, std::string_view end) {
    return std::string(shareBeginning) + std::to_string(share.number) + std::string(between) +
           std::to_string(share.count) + std::string(end);
}

std::optional<RunsOf> ownerOf(std::string_view name, std::string_view ofAllRecords,
                              std::string_view end) {
    if (name == ofAllRecords) {
        return RunsOf();
    }
    if (!name.starts_with(shareBeginning) || !name.ends_with(end)) {
        return std::nullopt;
    }
    name.remove_suffix(end.size());
    name.remove_prefix(shareBeginning.size());
    const auto middle = name.find(between);
    if (middle == std::string_view::npos) {
        return std::nullopt;
    }
    const auto share = shareOf(name.substr(0, middle), name.substr(middle + between.size()));
    return share ? std::optional(RunsOf{.share = share}) : std::nullopt;
}

// Nothing where the tasks are not one step apart: then nobody knows the place of this one.
std::optional<Share> shareOfArray(const Environment& environment) {
    const auto number = [&](std::string_view name) { return numberOf(environment(name)); };
    const auto task = number("SLURM_ARRAY_TASK_ID");
    const auto first = number("SLURM_ARRAY_TASK_MIN");
    const auto count = number("SLURM_ARRAY_TASK_COUNT");
    const auto last = number("SLURM_ARRAY_TASK_MAX");
    const auto step = number("SLURM_ARRAY_TASK_STEP").value_or(1);
    if (!task || !first || !count || *task < *first || step == 0 || (*task - *first) % step != 0) {
        return std::nullopt;
    }
    if (last && (*last < *first || (*last - *first) / step + 1 != *count)) {
        return std::nullopt; // there are gaps
    }
    const auto place = (*task - *first) / step;
    return place < *count ? std::optional(Share{.number = place + 1, .count = *count})
                          : std::nullopt;
}

[[noreturn]] void refuse(const std::string& why) {
    throw RunTimeError(ErrorNumber::InvalidFileFormat, why);
}

} // namespace

std::uint32_t shareOf(std::string_view record, std::uint32_t count) noexcept {
    return static_cast<std::uint32_t>(hashOf(record) % count) + 1;
}

bool isIn(const Share& share, std::string_view record) noexcept {
    return shareOf(record, share.count) == share.number;
}

std::optional<Share> parseShare(std::string_view text) {
    const auto slash = text.find('/');
    return slash == std::string_view::npos ? std::nullopt
                                           : shareOf(text.substr(0, slash), text.substr(slash + 1));
}

std::string wordsOf(const Share& share) {
    return std::to_string(share.number) + " of " + std::to_string(share.count);
}

Share shareOfEnvironment(const Environment& environment) {
    if (!environment("SLURM_ARRAY_TASK_ID").empty()) {
        const auto share = shareOfArray(environment);
        if (!share) {
            refuse("The tasks of this Slurm array are not numbered one after the other, so that "
                   "--shard auto cannot tell the share; --shard K/N says it.");
        }
        return *share;
    }
    const std::string named = environment("TARNWICK_SHARD");
    if (named.empty()) {
        refuse("--shard auto is for a task of a Slurm array, or needs TARNWICK_SHARD=K/N.");
    }
    const auto share = parseShare(named);
    if (!share) {
        refuse("TARNWICK_SHARD is no share, such as 3/8: " + quoted(named) + ".");
    }
    return *share;
}

std::string jobOfEnvironment(const Environment& environment) {
    const std::string task = environment("SLURM_ARRAY_TASK_ID");
    const std::string array = environment("SLURM_ARRAY_JOB_ID");
    if (!task.empty() && !array.empty()) {
        return "Slurm job " + array + "_" + task;
    }
    const std::string job = environment("SLURM_JOB_ID");
    return job.empty() ? "" : "Slurm job " + job;
}

std::string logNameOf(const std::optional<Share>& share) {
    return share ? fileNameOf(*share, logEnd) : std::string(allRecordsLog);
}

std::string lockNameOf(const std::optional<Share>& share) {
    return share ? fileNameOf(*share, lockEnd) : std::string(allRecordsLock);
}

std::optional<RunsOf> ownerOfLog(std::string_view name) {
    return ownerOf(name, allRecordsLog, logEnd);
}

std::optional<RunsOf> ownerOfLock(std::string_view name) {
    return ownerOf(name, allRecordsLock, lockEnd);
}

} // namespace tarnwick
