#include "report/run_report_of.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "platform/wildcard.hpp"
#include "report/folder_links.hpp"
#include "runner/message_log.hpp"
#include "runner/messages.hpp"
#include "runner/plan.hpp"
#include "runner/run_log.hpp"
#include "runner/state_logs.hpp"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

namespace tarnwick {
namespace {

using State = ReportedRecord::State;

class ReportMaker {
  public:
    ReportMaker(const ReportSubject& subject, const RunnerServices& services, const ToUtf8& utf8)
        : subject_(subject), services_(services), utf8_(utf8) {}

    RunReport make() {
        report_.definition = utf8_(subject_.definition);
        report_.made = services_.clock.dateAndTime();
        report_.findingsAreKnown = messagesAreKnown(subject_.products);
        readLog();
        gatherNames();
        plan();
        for (const std::string& name : names_) {
            addRecord(name);
        }
        notes_ = {}; // the findings need the room
        reasons_ = {};
        history_.own.records = {};
        addFindings();
        countStates();
        addProducts();
        return std::move(report_);
    }

  private:
    const Job& job() const { return subject_.job; }

    void readLog() {
        const std::string path = joinPath(subject_.stateFolder, "run.log");
        history_.ownName = "run.log";
        history_.own = readRunLog(services_.files, path, [&](const LogLine& line) {
            if (const auto* const run = std::get_if<RunLine>(&line)) {
                report_.totals.begun = run->begun;
            } else if (const auto* const record = std::get_if<RecordLine>(&line)) {
                notes_[record->record] = {.why = record->why, .calls = record->calls};
            }
        });
        messageLog_ = messageLogOf(path);
    }

    void gatherNames() {
        names_.reserve(job().records.size() + job().refused.size());
        for (const StampedFile& record : job().records) {
            names_.push_back(record.name);
        }
        for (const auto& [name, why] : job().refused) {
            names_.push_back(name);
            refused_[name] = why;
        }
        sortNames(names_);
    }

    // What would have to run if the tools and all else were as the last run found them: whether
    // they still are, nobody can say where they are not.
    void plan() {
        const auto last = history_.own.runs.find(history_.own.lastRun());
        const RunConditions conditions =
            last == history_.own.runs.end() ? RunConditions() : last->second;
        for (const auto& [record, reason] :
             planRun(job(), subject_.products, history_, conditions, services_.stamps, false)
                 .toRun) {
            reasons_[job().records[record].name] = reason.kind;
        }
    }

    void addRecord(const std::string& name) {
        ReportedRecord& record = report_.records.emplace_back();
        record.name = utf8_(name);
        if (const auto refused = refused_.find(name); refused != refused_.end()) {
            record.state = State::Failed;
            record.why = utf8_(refused->second);
            return;
        }
        record.state = stateOf(name);
        if (const auto note = notes_.find(name);
            note != notes_.end() && record.state != State::NotRun) {
            record.why = utf8_(note->second.why);
            for (const CallNote& call : note->second.calls) {
                record.calls.push_back({.tool = std::string(nameOf(call.tool)),
                                        .code = call.code,
                                        .seconds = call.seconds});
            }
        }
        if (hasProducts(name, record.state, Tool::MP)) {
            record.mpStem = utf8_(subject_.products.stemOf(Tool::MP, name));
        }
        if (hasProducts(name, record.state, Tool::CNS)) {
            record.cnsStem = utf8_(subject_.products.stemOf(Tool::CNS, name));
        }
    }

    [[nodiscard]] State stateOf(const std::string& name) const {
        const auto found = history_.own.records.find(name);
        if (found == history_.own.records.end()) {
            return State::NotRun;
        }
        const auto& [state, run, line, stamp, products] = found->second;
        if (state != KnownRecord::State::Made) {
            return state == KnownRecord::State::Failed ? State::Failed : State::NotRun;
        }
        const auto reason = reasons_.find(name);
        const bool isAsItWas =
            reason == reasons_.end() || reason->second == Reason::Kind::OutputsUnknown;
        if (!isAsItWas) {
            return State::NotRun;
        }
        return run == history_.own.lastRun() ? State::Made : State::UpToDate;
    }

    // Of what is made all are there. What failed may have left those of an earlier run, of another
    // tool, or whole ones that say what somebody will not have.
    [[nodiscard]] bool hasProducts(const std::string& name, State state, Tool tool) const {
        if (state == State::NotRun) {
            const auto reason = reasons_.find(name);
            return reason != reasons_.end() && reason->second != Reason::Kind::New &&
                   reason->second != Reason::Kind::Interrupted;
        }
        return state != State::Failed ||
               std::ranges::any_of(subject_.products.kinds(), [&](const ProductKind& kind) {
                   return kind.tool == tool &&
                          services_.stamps.stampOfExact(subject_.products.pathOf(kind, name));
               });
    }

    void addFindings() {
        KeptFindings found = readFindings(services_.files, {.messageLog = messageLog_,
                                                            .lastRun = history_.own.lastRun(),
                                                            .records = names_,
                                                            .patterns = subject_.patterns,
                                                            .utf8 = utf8_});
        countFindings(found, report_.totals);
        for (RecordPlace place = 0; place < names_.size(); ++place) {
            ReportedRecord& record = report_.records[place];
            record.findings = std::move(found.findings[place]);
            const std::string& failing = found.failing[place];
            if (!failing.empty() &&
                (record.state == State::Made || record.state == State::UpToDate)) {
                record.state = State::Failed;
                record.why = utf8_(messageFailure(failing));
            }
        }
        report_.shapes = std::move(found.shapes);
        report_.changes = std::move(found.changes);
        report_.hasRunBefore = found.hasRunBefore;
        report_.runs = std::move(found.runs);
        if (!report_.runs.empty() && report_.runs.back().begun == report_.totals.begun) {
            report_.totals.seconds = report_.runs.back().seconds;
        }
    }

    void countStates() {
        RunTotals& totals = report_.totals;
        for (const ReportedRecord& record : report_.records) {
            switch (record.state) {
            case State::Made:
                ++totals.made;
                break;
            case State::UpToDate:
                ++totals.upToDate;
                break;
            case State::Failed:
                ++totals.failed;
                break;
            case State::NotRun:
                ++totals.notRun;
                break;
            }
        }
    }

    void addProducts() {
        for (const ProductKind& kind : subject_.products.kinds()) {
            report_.products.push_back({.label = utf8_(kind.label),
                                        .folder = {},
                                        .suffix = utf8_(subject_.products.suffixOf(kind)),
                                        .ofCns = kind.tool == Tool::CNS});
        }
    }

    // What the log says of a record beyond what a plan needs.
    struct Note {
        std::string why;
        std::vector<CallNote> calls;
    };

    const ReportSubject& subject_;
    const RunnerServices& services_;
    const ToUtf8& utf8_;
    StateHistory history_;
    std::string messageLog_;
    std::unordered_map<std::string, Note> notes_;
    std::vector<std::string> names_;
    std::map<std::string, std::string> refused_; // and why
    std::unordered_map<std::string, Reason::Kind> reasons_;
    RunReport report_;
};

} // namespace

RunReport runReportOf(const ReportSubject& subject, const RunnerServices& services,
                      const ToUtf8& utf8) {
    return ReportMaker(subject, services, utf8).make();
}

void linkProducts(RunReport& report, const Products& products, std::string_view file,
                  const ToolPaths& paths, const ToUtf8& utf8) {
    const std::string from = utf8(paths.toolPath(GetFolderPath(file) + "\\"));
    for (std::size_t place = 0; place < report.products.size(); ++place) {
        const std::string to = utf8(paths.toolPath(products.kinds()[place].folder));
        report.products[place].folder = linkToFolder(from, to, paths.separator());
    }
}

} // namespace tarnwick
