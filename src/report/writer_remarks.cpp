#include "report/writer_remarks.hpp"

#include "runner/state_logs.hpp"

#include <cstdint>
#include <map>
#include <utility>

namespace tarnwick {
namespace {

// "3", "3 and 7", "2, 3 and 7", "12": numbers of shares, or how many where they are many.
std::string shareNumbers(const std::vector<std::uint32_t>& numbers) {
    constexpr std::size_t most = 10;
    if (numbers.size() > most) {
        return std::to_string(numbers.size()) + " shares";
    }
    std::string text = numbers.size() == 1 ? "Share " : "Shares ";
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        const bool isLast = at + 1 == numbers.size();
        text += (at == 0 ? "" : isLast ? " and " : ", ") + std::to_string(numbers[at]);
    }
    return text;
}

} // namespace

std::vector<std::string> remarksOnWriters(const Files& files, const ProcessLocks& locks,
                                          const std::string& stateFolder, std::string_view me) {
    using Kind = LogWriter::Kind;
    std::map<std::pair<std::uint32_t, Kind>, std::vector<std::uint32_t>> atWork; // by count
    for (const StateLog& log : stateLogs(files, stateFolder)) {
        const LogWriter writer = writerOf(locks, stateFolder, log.share, me);
        if (writer.kind != Kind::Nobody && writer.holder != me) {
            atWork[{log.share ? log.share->count : 0, writer.kind}].push_back(
                log.share ? log.share->number : 0);
        }
    }
    std::vector<std::string> remarks;
    for (const auto& [of, numbers] : atWork) {
        const auto& [count, kind] = of;
        const std::string who = count == 0 ? "A run over all records"
                                           : shareNumbers(numbers) + " of " + std::to_string(count);
        const std::string is = numbers.size() == 1 ? " is" : " are";
        remarks.push_back(who + (kind == Kind::AtWork ? is + " still at work."
                                                      : " may still be at work elsewhere."));
    }
    return remarks;
}

} // namespace tarnwick
