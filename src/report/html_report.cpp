#include "report/html_report.hpp"

#include "report/escaping.hpp"
#include "report/html_failures.hpp"
#include "report/html_findings.hpp"
#include "report/html_parts.hpp"
#include "report/html_plots.hpp"
#include "report/html_records.hpp"
#include "report/page_assets.hpp"
#include "report/report_words.hpp"
#include "runner/hash.hpp"
#include "runner/progress_line.hpp"

namespace tarnwick {
namespace {

std::string figure(std::string_view name, std::string_view value, std::string_view of = {}) {
    const std::string attribute = of.empty() ? "" : " class=\"" + std::string(of) + "\"";
    std::string text = "<div" + attribute + "><dt>";
    return text.append(name).append("</dt><dd>").append(value).append("</dd></div>\n");
}

std::string figures(const RunReport& report) {
    const RunTotals& totals = report.totals;
    std::string text = "<dl class=\"figures\">\n" +
                       figure("Records", grouped(report.records.size())) +
                       figure("Made", grouped(totals.made), "made") +
                       figure("Up to date", grouped(totals.upToDate), "kept") +
                       figure("Failed", grouped(totals.failed), "failed") +
                       figure("Not run", grouped(totals.notRun), "notrun");
    if (report.findingsAreKnown) {
        text += figure("With findings", grouped(totals.recordsWithFindings)) +
                figure("Messages", grouped(totals.messages));
    }
    return text + "</dl>\n";
}

std::string remarks(const RunReport& report) {
    std::string text;
    for (const std::string& remark : report.remarks) {
        text += "<p class=\"remark\">" + markupText(cutText(remark)) + "</p>\n";
    }
    return text;
}

std::string head(const RunReport& report) {
    const std::string definition = markupText(cutText(report.definition));
    std::string when;
    if (!report.totals.begun.empty()) {
        when = "Run of " + timeElement(report.totals.begun) +
               (report.lastRunIsWhole
                    ? ", which took " + durationText(sensibleSeconds(report.totals.seconds))
                    : ", which was of some records only, or has not come to its end") +
               ". ";
    }
    return "<header>\n<h1>" + definition + "</h1>\n<p>" + when + "Report made " +
           timeElement(report.made) + ".</p>\n</header>\n";
}

std::string contents(const RunReport& report) {
    const auto entry = [](std::string_view place, std::string_view name) {
        return "<li><a href=\"#" + std::string(place) + "\">" + std::string(name) + "</a></li>";
    };
    return "<nav aria-label=\"Contents\"><ul>" + entry("failures", "Failures") +
           (report.findingsAreKnown ? entry("findings", "Findings") : "") +
           (report.findingsAreKnown && report.hasRunBefore ? entry("changes", "New and gone")
                                                           : "") +
           entry("runs", "Last runs") + entry("times", "Times of the tools") +
           entry("records", "All records") + "</ul></nav>\n";
}

void body(const RunReport& report, const PageLinks& links, const ReportSink& sink) {
    sink("<body>\n" + head(report) + "<main>\n" + figures(report) + stateBar(report) +
         remarks(report) + contents(report));
    sink(failuresSection(report, links.shapes));
    if (report.findingsAreKnown) {
        sink(findingsSection(report, links) + changesSection(report, links.shapes));
    }
    sink(runsSection(report) + timesSection(report));
    recordsSection(report, links.listed, sink);
    sink("</main>\n");
}

// Nothing is fetched, and no script runs but the one with this mark, which nobody whose text stands
// in the report can know before.
std::string policy(std::string_view mark) {
    return "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
           "img-src data:; style-src 'unsafe-inline'; script-src 'nonce-" +
           std::string(mark) + "'; base-uri 'none'; form-action 'none'\">\n";
}

std::string title(const RunReport& report) {
    return markupText(cutText(report.definition)) + ": " + grouped(report.totals.failed) +
           " failed, " + grouped(report.totals.recordsWithFindings) + " with findings";
}

} // namespace

// The mark stands before what it is made of, so that is made twice: it may be too
// large to be held beside the report.
void htmlReport(const RunReport& report, const ReportSink& sink) {
    const PageLinks links(report);
    PiecewiseHash hash;
    body(report, links, [&](std::string_view piece) { hash.add(piece); });
    const std::string mark = hexadecimal(hash.hash());
    sink("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n" +
         std::string(htmlMark) + "\n" + policy(mark) +
         "<meta name=\"viewport\" content=\"width=device-width\">\n"
         "<meta name=\"color-scheme\" content=\"light dark\">\n"
         "<link rel=\"icon\" href=\"data:,\">\n<title>" +
         title(report) + "</title>\n<style>\n" + std::string(pageStyle()) + "</style>\n</head>\n");
    body(report, links, sink);
    sink("<script nonce=\"" + mark + "\">\n");
    sink(pageScript());
    sink("</script>\n</body>\n</html>\n");
}

} // namespace tarnwick
