#pragma once

#include "report/run_report.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace tarnwick {

// What a record's row in the list of all records is called: "r1" and so on. The script shows that
// record alone where a link leads to it.
[[nodiscard]] std::string rowName(RecordPlace record);

// The record's name as a link to its row.
[[nodiscard]] std::string recordLink(const RunReport& report, RecordPlace record);

// The links to one product, with a blank behind each: what is the same in all of them is made once.
// Refers to `product`.
class ProductLinks {
  public:
    explicit ProductLinks(const ReportedProduct& product);

    // Empty where the record has none.
    [[nodiscard]] std::string of(const ReportedRecord& record) const;

  private:
    const ReportedProduct& product_;
    std::string begin_;
    std::string end_;
};

// Of all products; those that hold messages come first where `messagesFirst`.
[[nodiscard]] std::vector<ProductLinks> productLinks(const RunReport& report, bool messagesFirst);

// A record's findings, those that few records have first, for they say more: at most
// mostShapesOfRecord of them.
inline constexpr std::size_t mostShapesOfRecord = 25;
[[nodiscard]] std::vector<Finding> shownFindings(const RunReport& report,
                                                 const ReportedRecord& record);

} // namespace tarnwick
