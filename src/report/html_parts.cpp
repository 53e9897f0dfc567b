#include "report/html_parts.hpp"

#include "report/escaping.hpp"
#include "report/report_words.hpp"
#include "runner/number_text.hpp"
#include "runner/visible_text.hpp"

#include <algorithm>

namespace tarnwick {
std::string cutText(std::string_view text) {
    constexpr std::size_t most = 1000;
    return shortened(text, most, utf8Page());
}

std::string sectionBegin(std::string_view place, std::string_view heading) {
    std::string text = "<section id=\"";
    text.append(place)
        .append("\" aria-labelledby=\"")
        .append(place)
        .append("-heading\">\n<h2 id=\"");
    return text.append(place).append("-heading\">").append(heading).append("</h2>\n");
}

std::string sectionBegin(std::string_view place, std::string_view heading, std::uint64_t count) {
    return sectionBegin(place, std::string(heading) + " <span class=\"count\">" + grouped(count) +
                                   "</span>");
}

std::string moreText(std::uint64_t all, std::uint64_t shown, std::string_view what,
                     AllAreIn reports) {
    if (all <= shown) {
        return {};
    }
    return "<p class=\"more\">And " + counted(all - shown, "more " + std::string(what)) +
           ": reports as .json " + (reports == AllAreIn::JsonAndCsv ? "or .csv " : "") +
           "have all.</p>\n";
}

std::string timeElement(std::string_view time) {
    if (!isDateAndTime(time)) {
        return markupText(cutText(time));
    }
    const std::string shown =
        std::string(time.substr(0, 10)) + " " + std::string(time.substr(11, 5));
    return "<time datetime=\"" + std::string(time) + "\">" + shown + " UTC</time>";
}

std::string barCell(std::uint64_t part, std::uint64_t whole) {
    const double share =
        whole == 0 ? 0 : 100 * static_cast<double>(part) / static_cast<double>(whole);
    // What is there at all is seen.
    const double width = part == 0 ? 0 : std::clamp(share, 0.5, 100.0);
    return "<td class=\"bar\"><svg viewBox=\"0 0 100 10\" preserveAspectRatio=\"none\" "
           "aria-hidden=\"true\"><rect width=\"" +
           numberText(width, 1) + R"(" height="10"/></svg>)";
}

std::string numberCell(std::uint64_t number) {
    return "<td class=\"number\">" + grouped(number);
}

} // namespace tarnwick
