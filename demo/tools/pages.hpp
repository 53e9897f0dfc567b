#pragma once

#include "messages.hpp"
#include "record.hpp"

#include <span>
#include <string>
#include <string_view>

namespace demo {

// Another output of the same run, for a page to link to.
struct Link {
    std::string_view caption;
    std::string path; // as it was given; stands in the page unchanged
};

// The record as a page: all its elements in nested lists. `ownPath` is where it will be written; it
// stands in a line that begins with "<base href". Each link has a line of its own, as HREF="path".
[[nodiscard]] std::string htmlPage(const Record& record, std::string_view ownPath,
                                   std::span<const Link> links, Language language);

// The record as questions and answers; a question that no element answers is left out.
[[nodiscard]] std::string faqPage(const Record& record, std::string_view ownPath,
                                  std::span<const Link> links, Language language);

} // namespace demo
