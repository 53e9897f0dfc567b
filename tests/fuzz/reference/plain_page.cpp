#include "reference/plain_page.hpp"

#include "platform/case_folding.hpp"
#include "reference/plain_text.hpp"

namespace tarnwick::reference {
namespace {

std::string rewritten(std::string line, const PageRule& rule) {
    for (const PageRule::Link& link : rule.links) {
        const auto at = line.find(link.from);
        if (at != std::string::npos) {
            line = line.substr(0, at) + link.to + line.substr(at + link.from.size());
        }
    }
    if (upperCase(trimmed(line)).starts_with("<BASE HREF")) {
        const auto at = line.rfind(rule.ownPath);
        if (at != std::string::npos) {
            line = line.substr(0, at) + rule.ownName + line.substr(at + rule.ownPath.size());
        }
    }
    return line;
}

} // namespace

std::string rewrittenPage(std::string_view page, const PageRule& rule) {
    std::string result;
    for (auto end = page.find_first_of("\r\n"); end != std::string_view::npos;
         end = page.find_first_of("\r\n")) {
        result += rewritten(std::string(page.substr(0, end)), rule) + page[end];
        page.remove_prefix(end + 1);
    }
    return result + rewritten(std::string(page), rule);
}

} // namespace tarnwick::reference
