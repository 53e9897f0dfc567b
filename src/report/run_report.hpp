#pragma once

#include "report/kept_messages.hpp"
#include "runner/run_totals.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// What the runs of a definition left, as a value: a report is a pure function of it to text.
// Texts are meant to be UTF-8, but what tools and file systems say may be any bytes: whoever writes
// a text into a report escapes it and replaces what is no UTF-8.

// The place of a record in RunReport::records.
using RecordPlace = std::uint32_t;

// A message as it stands in a record's error report.
struct Example {
    RecordPlace record = 0;
    std::uint32_t line = 0; // counted from 1
    std::string text{};

    bool operator==(const Example&) const = default;
};

// What messages have in common that differ only in numbers, quoted text, file names and paths.
struct Shape {
    static constexpr std::size_t mostExamples = 5;

    std::string text{};              // such as: Error (line #): "…" is no date
    std::uint32_t records = 0;       // that have it now; 0: it is gone since the run before
    std::uint64_t messages = 0;      // in all these
    std::uint32_t recordsBefore = 0; // that had it after the run before
    std::vector<Example> examples{}; // by record and line, at most mostExamples
    bool common = false;             // nearly every record has it

    bool operator==(const Shape&) const = default;
};

// The messages of one shape in one record.
struct Finding {
    ShapePlace shape = 0;
    std::uint32_t messages = 1;
    std::uint32_t line = 0; // of the first

    bool operator==(const Finding&) const = default;
};

struct ReportedCall {
    std::string tool{}; // "CNS" or "MP"
    std::int64_t code = 0;
    double seconds = 0;

    bool operator==(const ReportedCall&) const = default;
};

struct ReportedRecord {
    enum class State : std::uint8_t {
        Made,     // by the last run
        UpToDate, // made by an earlier one, and still as that left it
        Failed,
        NotRun, // the last run was ended before, or none has come to it yet
    };

    std::string name{};
    State state = State::NotRun;
    std::string why{}; // it failed: a sentence
    std::vector<ReportedCall> calls{};
    std::vector<Finding> findings{}; // in the order of the tools' reports
    // What the names of its products begin with: MP's, and CNS's. Empty: it has none of these, as
    // when it failed and they were removed, or was never made.
    std::string mpStem{};
    std::string cnsStem{};
    KeptMessages messages{};           // all of `findings`, where their texts are held
    std::uint64_t messagesLeftOut = 0; // how many more the tools have said

    bool operator==(const ReportedRecord&) const = default;
};

// One file that is made of every record: its name is the record's stem and `suffix`.
struct ReportedProduct {
    std::string label{}; // "html"
    // As a link from the report: relative where it can be, percent-encoded, ends in "/".
    std::string folder{};
    std::string suffix{};       // not encoded
    bool ofCns = false;         // else MP's
    bool holdsMessages = false; // a report of the tool, as holdsMessages(ProductKind) says

    bool operator==(const ReportedProduct&) const = default;
};

// What messages came to a record since the run before, or went from it.
struct RecordChange {
    RecordPlace record = 0;
    std::vector<ShapePlace> appeared{};
    std::vector<ShapePlace> gone{};

    bool operator==(const RecordChange&) const = default;
};

// Of which records the messages are held by their own texts.
enum class Texts : std::uint8_t {
    OfNone,
    OfFailures, // of the first RunReport::mostFailures, but for those that fail by their messages
    OfAll,
};

struct RunReport {
    static constexpr std::size_t mostRuns = 50;
    static constexpr std::size_t mostFailures = 1000; // that people are told of one by one

    std::string definition{}; // its file name, without a folder
    std::string made{};       // when this report was, UTC
    RunTotals totals{};       // as it stands now
    // Whether the last run was over all records and has ended: else its seconds are not known.
    bool lastRunIsWhole = true;
    std::vector<RunTotals> runs{};         // the last mostRuns, oldest first, the last among them
    std::vector<ReportedRecord> records{}; // by name
    std::vector<ReportedProduct> products{};
    std::vector<Shape> shapes{}; // by records that have it, most first; those that are gone last
    bool hasRunBefore = false;   // there is a run to compare with
    std::vector<RecordChange> changes{}; // by record; empty where there is none
    std::vector<std::string> remarks;    // sentences: shares that are still at work, and the like
    bool findingsAreKnown = true;        // else the definition asks for no error reports

    bool operator==(const RunReport&) const = default;
};

} // namespace tarnwick
