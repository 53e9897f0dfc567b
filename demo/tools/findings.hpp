#pragma once

#include "messages.hpp"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

// What is wrong with a record, in the words of one language. The list is cut, the counts are not,
// so that a file that is no record at all does not make a report larger than itself.
class Findings {
  public:
    static constexpr std::size_t listed = 1000;

    explicit Findings(Language language) : language_(language) {}

    // `line` 0: of the record as a whole.
    void error(std::size_t line, Message message,
               std::initializer_list<std::string_view> values = {});
    void warning(std::size_t line, Message message,
                 std::initializer_list<std::string_view> values = {});
    // An error that came before there was a record to read.
    void error(std::string text);

    // The error report: a heading, the findings by line and those of the whole record behind them,
    // and the counts.
    [[nodiscard]] std::string report(std::string_view inputPath) const;

  private:
    struct Finding {
        std::size_t line = 0;
        bool isError = true;
        std::string text;
    };
    void add(Finding finding);
    [[nodiscard]] std::string sentence(const Finding& finding) const;

    Language language_;
    std::vector<Finding> findings_;
    std::size_t errors_ = 0;
    std::size_t warnings_ = 0;
};

} // namespace demo
