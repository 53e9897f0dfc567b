#include "report/html_report.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"

namespace tarnwick {

std::string htmlReport(const RunReport& report) {
    std::string text = "<!DOCTYPE html>\n<html lang=\"en\"><meta charset=\"utf-8\"><title>" +
                       markupText(report.definition) + "</title>\n<h1>" +
                       markupText(report.definition) +
                       "</h1>\n<table><tr><th>Record<th>State<th>Why\n";
    for (const ReportedRecord& record : report.records) {
        text.append("<tr><th>").append(markupText(record.name)).append("<td>");
        text.append(stateWord(record.state)).append("<td>").append(markupText(record.why));
        text.append("\n");
    }
    return text + "</table></html>\n";
}

} // namespace tarnwick
