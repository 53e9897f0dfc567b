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

// The links from all records to one product, with a blank behind each. What they have in common is
// made only once. Refers to `product`.
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

// A shape's place in the table of findings as text: "#12". Places count from 0, people from 1.
[[nodiscard]] std::string shapeNumber(ShapePlace place);

// How many shapes have a row under Findings: of those that nearly every record has, and as many
// again of the others.
inline constexpr std::size_t mostShapes = 500;

// The numbers of shapes as links to their rows under Findings.
class ShapeLinks {
  public:
    explicit ShapeLinks(const RunReport& report);

    // Not those that are gone, nor those beyond mostShapes.
    [[nodiscard]] bool hasRow(ShapePlace place) const { return hasRow_.at(place); }

    // The number alone where the shape has no row.
    [[nodiscard]] std::string of(ShapePlace place) const;

  private:
    std::vector<bool> hasRow_;
};

// A record's findings, those that few records have first, for they say more: at most
// mostShapesOfRecord of them.
inline constexpr std::size_t mostShapesOfRecord = 25;
[[nodiscard]] std::vector<Finding> shownFindings(const RunReport& report,
                                                 const ReportedRecord& record);

// The findings that a record's row in the list of all records has, which is where the script looks
// for them: all, as long as those of all rows together take no more than roomForShapes bytes; else
// the first mostShapesOfRecord of each row. The shapes that most records have stand first.
class ListedFindings {
  public:
    static constexpr std::size_t roomForShapes = 6'000'000;

    explicit ListedFindings(const RunReport& report);

    [[nodiscard]] bool areAll() const noexcept { return missing_.empty(); }

    // "#1 #12", and " ..." behind them where the record has more.
    [[nodiscard]] std::string of(const ReportedRecord& record) const;

    // Whether the rows of all records that have the shape name it.
    [[nodiscard]] bool canFind(ShapePlace place) const { return areAll() || !missing_.at(place); }

  private:
    std::vector<bool> missing_; // of each shape, in some row; empty where none is
};

// What the sections of one page share: which shapes have a row, and which findings are listed.
struct PageLinks {
    explicit PageLinks(const RunReport& report) : shapes(report), listed(report) {}

    ShapeLinks shapes;
    ListedFindings listed;
};

} // namespace tarnwick
