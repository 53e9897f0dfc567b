#pragma once

#include "report/report_sink.hpp"
#include "report/run_report.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarnwick {

enum class ReportKind : std::uint8_t { Html, Json, Csv, JUnit };

// By the extension of the file, without regard to case: .html, .json, .csv or .xml. Nothing for
// any other.
[[nodiscard]] std::optional<ReportKind> reportKindOf(std::string_view file);

// Whether a file with that beginning is a report of the kind, so that another may replace it. An
// empty one may be replaced, too.
inline constexpr std::size_t reportBeginning = 512; // bytes of it
[[nodiscard]] bool isReport(ReportKind kind, std::string_view beginning);

// What RunReport must hold for reports of the kind.
[[nodiscard]] Texts textsIn(ReportKind kind);

// Raises what `sink` raises.
void writeReport(ReportKind kind, const RunReport& report, const ReportSink& sink);

} // namespace tarnwick
