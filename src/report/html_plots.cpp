#include "report/html_plots.hpp"

#include "report/escaping.hpp"
#include "report/html_links.hpp"
#include "report/html_parts.hpp"
#include "report/report_words.hpp"
#include "runner/number_text.hpp"
#include "runner/progress_line.hpp"

#include <algorithm>
#include <cstdint>
#include <ranges>
#include <string_view>
#include <vector>

namespace tarnwick {
namespace {

std::string rectangle(double x, double y, double width, double height, std::string_view of,
                      std::string_view title) {
    std::string text = "<rect class=\"" + std::string(of) + "\" x=\"" + numberText(x, 1) +
                       "\" y=\"" + numberText(y, 1) + "\" width=\"" + numberText(width, 1) +
                       "\" height=\"" + numberText(height, 1) + "\"><title>";
    return text.append(title).append("</title></rect>\n");
}

struct Part {
    std::string_view of; // its class
    std::string_view word;
    std::size_t count;
};

std::string barLabel(const std::vector<Part>& parts) {
    std::string label;
    for (const Part& part : parts) {
        label.append(label.empty() ? "" : ", ").append(grouped(part.count)).append(" ");
        label.append(part.word);
    }
    return label;
}

// A part that is there at all is seen.
double widthOf(const Part& part, std::size_t all) {
    constexpr double least = 4;
    constexpr double most = 1000;
    return part.count == 0
               ? 0
               : std::max(least, most * static_cast<double>(part.count) / static_cast<double>(all));
}

constexpr double plotWidth = 600;
constexpr double plotHeight = 64;

// One number of every run as bars over one another's place in the other plots; the last run's
// stands out.
template <typename NumberOf>
std::string plot(const RunReport& report, std::string_view name, const NumberOf& numberOf) {
    std::uint64_t most = 0;
    for (const RunTotals& run : report.runs) {
        most = std::max<std::uint64_t>(most, numberOf(run));
    }
    const std::uint64_t now = numberOf(report.runs.back());
    const double step = plotWidth / RunReport::mostRuns;
    double x = plotWidth - step * static_cast<double>(report.runs.size());
    std::string text = "<figure><figcaption>" + std::string(name) + " <strong>" + grouped(now) +
                       "</strong> <span>at most " + grouped(most) + "</span></figcaption>\n" +
                       R"(<svg viewBox="0 0 )" + numberText(plotWidth, 0) + " " +
                       numberText(plotHeight + 1, 0) +
                       R"(" preserveAspectRatio="none" role="img" aria-label=")" +
                       std::string(name) + " in the last " + counted(report.runs.size(), "run") +
                       ": at most " + grouped(most) + ", in the last one " + grouped(now) + "\">\n";
    for (const RunTotals& run : report.runs) {
        const std::uint64_t number = numberOf(run);
        const double height =
            most == 0 ? 0 : plotHeight * static_cast<double>(number) / static_cast<double>(most);
        text += rectangle(x, plotHeight - height, step - 2, std::max(height, 1.0),
                          &run == &report.runs.back() ? "now" : "before",
                          markupText(cutText(run.begun)) + ": " + grouped(number));
        x += step;
    }
    return text + "</svg></figure>\n";
}

std::string runsTable(const RunReport& report) {
    std::string text = "<details><summary>The numbers of these runs</summary>\n"
                       "<table class=\"runs\"><thead><tr><th scope=\"col\">Begun";
    for (const std::string_view column :
         {"Took", "Made", "Up to date", "Failed", "Not run", "With findings", "Messages"}) {
        text.append(R"(<th scope="col" class="number">)").append(column);
    }
    text += "</thead><tbody>\n";
    for (const RunTotals& run : report.runs | std::views::reverse) {
        text += R"(<tr><th scope="row">)" + timeElement(run.begun) + R"(<td class="number">)" +
                durationText(sensibleSeconds(run.seconds));
        for (const std::uint64_t number :
             {std::uint64_t{run.made}, std::uint64_t{run.upToDate}, std::uint64_t{run.failed},
              std::uint64_t{run.notRun}, std::uint64_t{run.recordsWithFindings}, run.messages}) {
            text += numberCell(number);
        }
        text += "\n";
    }
    return text + "</tbody></table></details>\n";
}

struct TimedCall {
    double seconds;
    RecordPlace record;
    std::uint32_t call; // the place among those of the record
};

std::vector<TimedCall> callsOf(const RunReport& report) {
    std::vector<TimedCall> calls;
    for (RecordPlace record = 0; record < report.records.size(); ++record) {
        for (std::uint32_t call = 0; call < report.records[record].calls.size(); ++call) {
            const double seconds = report.records[record].calls[call].seconds;
            calls.push_back({sensibleSeconds(seconds), record, call});
        }
    }
    return calls;
}

const ReportedCall& callOf(const RunReport& report, const TimedCall& call) {
    return report.records[call.record].calls[call.call];
}

// Steps of 1, 2, 5 from a millisecond to an hour; a call belongs to the first that is longer.
std::vector<double> steps() {
    std::vector<double> result;
    for (const double decade : {0.001, 0.01, 0.1, 1.0, 10.0, 100.0, 1000.0}) {
        for (const double factor : {1.0, 2.0, 5.0}) {
            result.push_back(decade * factor);
        }
    }
    return result;
}

std::string stepText(double seconds) {
    return seconds < 1 ? numberText(seconds * 1000, 0) + " ms" : numberText(seconds, 0) + " s";
}

std::string histogramRow(const std::vector<double>& limits, std::size_t place, std::uint64_t count,
                         std::uint64_t most) {
    const std::string range = place == 0 ? "under " + stepText(limits.front())
                              : place == limits.size()
                                  ? stepText(limits.back()) + " and more"
                                  : stepText(limits[place - 1]) + " to " + stepText(limits[place]);
    return "<tr><th scope=\"row\">" + range + barCell(count, most) + numberCell(count) + "\n";
}

std::string histogram(const RunReport& report, const std::vector<TimedCall>& calls,
                      std::string_view tool) {
    const std::vector<double> limits = steps();
    std::vector<std::uint64_t> counts(limits.size() + 1);
    for (const TimedCall& call : calls) {
        if (callOf(report, call).tool == tool) {
            ++counts[static_cast<std::size_t>(std::ranges::upper_bound(limits, call.seconds) -
                                              limits.begin())];
        }
    }
    const auto isUsed = [](std::uint64_t count) { return count > 0; };
    const auto first = std::ranges::find_if(counts, isUsed);
    if (first == counts.end()) {
        return {};
    }
    std::string text = "<table class=\"times\"><caption>" + std::string(tool) +
                       "</caption><thead><tr><th scope=\"col\">A call took<td class=\"bar\">"
                       "<th scope=\"col\" class=\"number\">Calls</thead><tbody>\n";
    const auto end = std::ranges::find_if(counts.rbegin(), counts.rend(), isUsed).base();
    const std::uint64_t most = std::ranges::max(counts);
    for (auto count = first; count != end; ++count) {
        text +=
            histogramRow(limits, static_cast<std::size_t>(count - counts.begin()), *count, most);
    }
    return text + "</tbody></table>\n";
}

std::string slowest(const RunReport& report, std::vector<TimedCall>& calls) {
    constexpr std::size_t most = 20;
    const auto end = calls.begin() + static_cast<std::ptrdiff_t>(std::min(most, calls.size()));
    std::ranges::partial_sort(calls, end, [](const TimedCall& one, const TimedCall& other) {
        return one.seconds != other.seconds ? one.seconds > other.seconds
                                            : one.record < other.record;
    });
    std::string text = "<table class=\"slowest\"><caption>The slowest calls</caption>"
                       "<thead><tr><th scope=\"col\">Record<th scope=\"col\">Tool"
                       "<th scope=\"col\" class=\"number\">Seconds"
                       "<th scope=\"col\" class=\"number\">Status</thead><tbody>\n";
    for (auto call = calls.begin(); call != end; ++call) {
        const ReportedCall& said = callOf(report, *call);
        text += "<tr><th scope=\"row\">" + recordLink(report, call->record) + "<td>" +
                markupText(cutText(said.tool)) + "<td class=\"number\">" +
                secondsText(call->seconds) + "<td class=\"number\">" + std::to_string(said.code) +
                "\n";
    }
    return text + "</tbody></table>\n";
}

} // namespace

std::string stateBar(const RunReport& report) {
    const RunTotals& totals = report.totals;
    const std::vector<Part> parts{{"made", "made", totals.made},
                                  {"kept", "up to date", totals.upToDate},
                                  {"failed", "failed", totals.failed},
                                  {"notrun", "not run", totals.notRun}};
    const std::size_t all = totals.made + totals.upToDate + totals.failed + totals.notRun;
    double width = 0;
    std::string rectangles;
    for (const Part& part : parts) {
        if (part.count > 0) {
            rectangles += rectangle(width, 0, widthOf(part, all), 28, part.of,
                                    grouped(part.count) + " " + std::string(part.word));
            width += widthOf(part, all);
        }
    }
    // Stripes tell failed records also from what has the same colour on paper or to some eyes.
    return R"(<svg class="states" viewBox="0 0 )" + numberText(std::max(width, 1.0), 1) +
           R"( 28" preserveAspectRatio="none" role="img" aria-label=")" + barLabel(parts) +
           "\">\n<defs><pattern id=\"stripes\" width=\"6\" height=\"6\" "
           "patternUnits=\"userSpaceOnUse\" patternTransform=\"rotate(45)\"><rect class=\"ground\" "
           "width=\"6\" height=\"6\"/><rect class=\"stripe\" width=\"2\" height=\"6\"/>"
           "</pattern></defs>\n" +
           rectangles + "</svg>\n";
}

std::string runsSection(const RunReport& report) {
    std::string text = sectionBegin("runs", "The last runs", report.runs.size());
    if (report.runs.empty()) {
        return text + "<p>No run has ended yet.</p>\n</section>\n";
    }
    text += "<div class=\"plots\">\n" +
            plot(report, "Records failed", [](const RunTotals& run) { return run.failed; });
    if (report.findingsAreKnown) {
        text += plot(report, "Records with findings",
                     [](const RunTotals& run) { return run.recordsWithFindings; }) +
                plot(report, "Messages", [](const RunTotals& run) { return run.messages; });
    }
    return text + "</div>\n<p class=\"axis\">From " + timeElement(report.runs.front().begun) +
           " to " + timeElement(report.runs.back().begun) + ", the last run at the right.</p>\n" +
           runsTable(report) + "</section>\n";
}

std::string timesSection(const RunReport& report) {
    std::vector<TimedCall> calls = callsOf(report);
    const std::string text = sectionBegin("times", "How long the tools took");
    if (calls.empty()) {
        return text + "<p>No tool has run yet.</p>\n</section>\n";
    }
    return text + "<div class=\"histograms\">\n" + histogram(report, calls, "CNS") +
           histogram(report, calls, "MP") + "</div>\n" + slowest(report, calls) + "</section>\n";
}

} // namespace tarnwick
