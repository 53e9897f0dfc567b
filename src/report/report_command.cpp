#include "report/report_command.hpp"

#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "platform/wildcard.hpp"
#include "platform/windows_path.hpp"
#include "report/reports.hpp"
#include "report/run_report_of.hpp"
#include "runner/message_log.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

// Whatever else has that name would be lost: a record, a product, the definition.
bool isFree(const Files& files, const std::string& path, ReportKind kind) {
    if (!FileExists(files, path)) {
        return true;
    }
    std::string beginning(reportBeginning, '\0');
    beginning.resize(files.openForReading(path)->read(beginning));
    return isReport(kind, beginning);
}

// The next run would take the report for a record.
bool seemsRecord(const BatchDefinition& definition, const std::string& path) {
    return equalIgnoringCase(withBackslash(GetFolderPath(path)),
                             withBackslash(definition.sInputFolder)) &&
           matchesAnyWildcard(GetFileName(path), definition.sInputExtensions);
}

// Why no report may be written there, behind a colon; empty where one may. Raises what
// Files::openForReading and InputFile::read raise.
std::string_view objection(const Files& files, const BatchDefinition& definition,
                           const std::string& path) {
    if (seemsRecord(definition, path)) {
        return "it would be taken for a record";
    }
    if (FolderExists(files, path)) {
        return "a folder has that name";
    }
    if (!isFree(files, path, reportKindOf(path).value_or(ReportKind::Html))) {
        return "another file has that name";
    }
    return "";
}

RunTotals countsOf(const RunEnd& end) {
    return {.begun = end.begun,
            .seconds = end.summary.seconds,
            .made = end.summary.made,
            .upToDate = end.summary.upToDate,
            .failed = end.summary.failed,
            .notRun = end.summary.notRun};
}

class ReportWriter {
  public:
    ReportWriter(const ReportRequest& request, const RunnerServices& services, const ToUtf8& utf8)
        : request_(request), services_(services), utf8_(utf8) {}

    // What people who read none of the reports should know of them.
    [[nodiscard]] const std::vector<std::string>& remarks() const noexcept { return remarks_; }
    // Whether every record is made, as far as the reports tell.
    [[nodiscard]] bool allAreMade() const noexcept { return allAreMade_; }

    // Of a run that has just ended, what it came to is among the runs before it is kept.
    RunEndNotes writeAll(const Job& job, const Products& products, const RunEnd* end) {
        RunEndNotes notes;
        try {
            RunReport report = runReportOf({.job = job,
                                            .products = products,
                                            .definition = request_.definition,
                                            .stateFolder = request_.stateFolder,
                                            .patterns = request_.patterns,
                                            .share = request_.share,
                                            .holder = request_.holder,
                                            .texts = textsTold()},
                                           services_, utf8_);
            remarks_ = report.remarks;
            allAreMade_ = report.totals.failed == 0 && report.totals.notRun == 0;
            if (end != nullptr) {
                report.totals.seconds = end->summary.seconds;
                report.lastRunIsWhole = true;
            }
            if (end != nullptr && !request_.ofSomeRecords) {
                notes.totals = report.totals;
                addRun(report);
            }
            for (const std::string& file : request_.files) {
                write(file, report, job, products, notes);
            }
        } catch (const RunTimeError& error) {
            notes.faults.push_back("No report can be made: " + error.record().description + ".");
            if (end != nullptr && !request_.ofSomeRecords) { // the run is a run all the same
                notes.totals = countsOf(*end);
                notes.findingsAsBefore = true;
            }
        }
        return notes;
    }

  private:
    // A million texts take more memory than all else.
    [[nodiscard]] Texts textsTold() const {
        Texts told = Texts::OfNone;
        for (const std::string& file : request_.files) {
            const auto kind = reportKindOf(file);
            told = std::max(told, kind ? textsIn(*kind) : Texts::OfNone);
        }
        return told;
    }

    static void addRun(RunReport& report) {
        report.runs.push_back(report.totals);
        if (report.runs.size() > RunReport::mostRuns) {
            report.runs.erase(report.runs.begin());
        }
    }

    void write(const std::string& file, RunReport& report, const Job& job, const Products& products,
               RunEndNotes& notes) {
        const std::string shown = quoted(shownPath(services_.paths, file));
        try {
            if (const auto why = objection(services_.files, job.definition, file); !why.empty()) {
                notes.faults.push_back("The report " + shown +
                                       " is not written: " + std::string(why) + ".");
                return;
            }
            const ReportKind kind = reportKindOf(file).value_or(ReportKind::Html);
            linkProducts(report, products, file, services_.paths, utf8_);
            writeInOneStep(services_.files, file, [&](OutputFile& out) {
                writeReport(kind, report, [&](std::string_view piece) { out.write(piece); });
            });
            notes.told.push_back("The report is " + shownPath(services_.paths, file));
        } catch (const RunTimeError& error) {
            notes.faults.push_back("The report " + shown +
                                   " cannot be written: " + error.record().description + ".");
        }
    }

    const ReportRequest& request_;
    const RunnerServices& services_;
    const ToUtf8& utf8_;
    std::vector<std::string> remarks_;
    bool allAreMade_ = false;
};

// Without a report to write, no folder is listed again, and of the logs only the own one is read;
// not even that where nothing was to do.
RunEndNotes totalsOf(const ReportRequest& request, const RunEnd& end,
                     const RunnerServices& services, const ToUtf8& utf8) {
    RunEndNotes notes;
    if (!end.hadWork) {
        notes.totals = countsOf(end);
        notes.findingsAsBefore = true;
        return notes;
    }
    try {
        std::vector<std::string> names;
        names.reserve(end.job.records.size());
        for (const StampedFile& record : end.job.records) {
            names.push_back(record.name);
        }
        const std::string log = joinPath(request.stateFolder, logNameOf(request.share));
        const KeptFindings found =
            readFindings(services.files, {.logs = {{.path = messageLogOf(log), .lastRun = end.run}},
                                          .records = names,
                                          .logOf = std::vector<std::uint32_t>(names.size()),
                                          .patterns = request.patterns,
                                          .utf8 = utf8});
        countFindings(found, notes.totals.emplace(countsOf(end)));
    } catch (const RunTimeError& error) {
        notes.faults.push_back("The message log cannot be read: " + error.record().description +
                               ".");
    }
    return notes;
}

} // namespace

std::function<std::vector<std::string>(const BatchDefinition& definition)>
remarksOnReports(ReportRequest request, const RunnerServices& services) {
    return [request = std::move(request), &services](const BatchDefinition& definition) {
        std::vector<std::string> remarks;
        for (const std::string& file : request.files) {
            const std::string folder = GetFolderPath(file);
            std::string why;
            try {
                const bool willBeThere = equalIgnoringCase(folder, request.stateFolder);
                why = willBeThere || FolderExists(services.files, folder)
                          ? objection(services.files, definition, file)
                          : "its folder does not exist";
            } catch (const RunTimeError& error) {
                why = error.record().description;
            }
            if (!why.empty()) {
                remarks.push_back("The report " + quoted(shownPath(services.paths, file)) +
                                  " could not be written: " + why + ".");
            }
        }
        return remarks;
    };
}

std::function<RunEndNotes(const RunEnd& end)>
reportsAtTheEnd(ReportRequest request, const RunnerServices& services, const ToUtf8& utf8) {
    return [request = std::move(request), &services, &utf8](const RunEnd& end) {
        if (!request.files.empty()) {
            return ReportWriter(request, services, utf8).writeAll(end.job, end.products, &end);
        }
        return request.ofSomeRecords ? RunEndNotes() : totalsOf(request, end, services, utf8);
    };
}

ExitStatus reportOnRuns(const BatchDefinition& definition, const RunRequest& run,
                        const ReportRequest& request, const RunnerServices& services,
                        const ToUtf8& utf8) {
    Console console(services.terminal, services.clock, run.style, "");
    auto [job, faults] = checkJob(definition, run.job,
                                  {.files = services.files,
                                   .stamps = services.stamps,
                                   .paths = services.paths,
                                   .canStart = services.canStart});
    for (const std::string& fault : faults) {
        console.complain(fault);
    }
    if (!faults.empty()) {
        return ExitStatus::NothingRun;
    }
    job.listing.reset(); // it is asked for again only where products lie among the records
    KnownFolders folders(services.files);
    const Products products(job.definition, folders);
    if (!request.patterns.failOn.empty() && !messagesAreKnown(products)) {
        console.complain(nothingCouldFail);
        return ExitStatus::NothingRun;
    }
    ReportWriter writer(request, services, utf8);
    const RunEndNotes notes = writer.writeAll(job, products, nullptr);
    for (const std::string& remark : writer.remarks()) {
        console.complain(remark); // a table in CSV has no place for it
    }
    for (const std::string& sentence : notes.told) {
        console.tell(sentence);
    }
    for (const std::string& fault : notes.faults) {
        console.complain(fault);
    }
    const bool insisted = !request.patterns.failOn.empty(); // else a report only tells
    return notes.faults.empty() && (!insisted || writer.allAreMade()) ? ExitStatus::Done
                                                                      : ExitStatus::SomeFailed;
}

} // namespace tarnwick
