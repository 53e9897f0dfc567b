#pragma once

#include "report/run_report.hpp"

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

// 0 for what no clock that only goes forwards can have measured.
[[nodiscard]] double sensibleSeconds(double seconds) noexcept;

// With three digits behind the point: "0.015".
[[nodiscard]] std::string secondsText(double seconds);

// Of all calls of a record.
[[nodiscard]] double secondsOf(const ReportedRecord& record) noexcept;
[[nodiscard]] std::uint64_t messagesOf(const ReportedRecord& record) noexcept;

// "CNS 0 in 0.002 s; MP 2 in 0.014 s".
[[nodiscard]] std::string callsText(const ReportedRecord& record);

} // namespace tarnwick
