#pragma once

#include "report/run_report.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {

// The words and numbers that the reports share.

// "made", "up to date", "failed", "not run".
[[nodiscard]] std::string_view stateWord(ReportedRecord::State state) noexcept;

// "100,000".
[[nodiscard]] std::string grouped(std::uint64_t number);

// "1 record", "2 records": `many` is `one` with an "s" where it is not given.
[[nodiscard]] std::string counted(std::uint64_t number, std::string_view one,
                                  std::string_view many = {});

// Whether it is such a text as 2026-11-22T02:24:48Z, in digits.
[[nodiscard]] bool isDateAndTime(std::string_view text) noexcept;

// 0 for what no clock that only goes forwards can have measured.
[[nodiscard]] double sensibleSeconds(double seconds) noexcept;

// With three digits behind the point: "0.015".
[[nodiscard]] std::string secondsText(double seconds);

// Of all calls of a record.
[[nodiscard]] double secondsOf(const ReportedRecord& record) noexcept;

// How many shapes and messages a record has, without what nearly every record has: as RunTotals
// counts them.
struct FindingCounts {
    std::size_t shapes = 0;
    std::uint64_t messages = 0;
};
[[nodiscard]] FindingCounts findingsOf(const RunReport& report, const ReportedRecord& record);

// "CNS 0 in 0.002 s; MP 2 in 0.014 s".
[[nodiscard]] std::string callsText(const ReportedRecord& record);

} // namespace tarnwick
