#pragma once

#include "report/run_report.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

enum class ReportKind : std::uint8_t { Html, Json, Csv, JUnit };

// By the extension of the file, without regard to case: .html, .json, .csv or .xml. Nothing for
// any other.
[[nodiscard]] std::optional<ReportKind> reportKindOf(std::string_view file);

[[nodiscard]] std::string reportText(ReportKind kind, const RunReport& report);

} // namespace tarnwick
