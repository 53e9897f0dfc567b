#include "report/run_report_of.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "platform/wildcard.hpp"
#include "report/folder_links.hpp"
#include "report/ruling_logs.hpp"
#include "report/writer_remarks.hpp"
#include "runner/messages.hpp"
#include "runner/plan.hpp"

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
        : subject_(subject),
          services_(services),
          utf8_(utf8),
          logs_(services.files, services.locks, subject.stateFolder, subject.share,
                subject.holder) {}

    RunReport make() {
        report_.definition = utf8_(subject_.definition);
        report_.made = services_.clock.dateAndTime();
        report_.findingsAreKnown = messagesAreKnown(subject_.products);
        report_.remarks = remarksOnWriters(services_.files, services_.locks, subject_.stateFolder,
                                           subject_.holder);
        addRemarks();
        gatherNames();
        plan();
        findRulings();
        for (std::size_t place = 0; place < names_.size(); ++place) {
            addRecord(names_[place], rulings_[place]);
        }
        reasons_ = {}; // the findings need the room
        logs_.letGo();
        addFindings();
        countStates();
        addProducts();
        return std::move(report_);
    }

  private:
    const Job& job() const { return subject_.job; }

    void addRemarks() {
        if (!report_.findingsAreKnown) {
            report_.remarks.emplace_back("The definition asks for no error reports: what the tools "
                                         "found in the records is not known.");
        }
        for (const std::string& pattern : subject_.patterns.ignore) {
            report_.remarks.push_back("Messages like " + quoted(utf8_(pattern)) + " are left out.");
        }
        for (const std::string& pattern : subject_.patterns.failOn) {
            report_.remarks.push_back("A record with a message like " + quoted(utf8_(pattern)) +
                                      " counts as failed.");
        }
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

    void plan() {
        for (const auto& [record, reason] :
             planRun(job(), subject_.products, logs_.history(), {}, services_.stamps, false)
                 .toRun) {
            reasons_[job().records[record].name] = reason.kind;
        }
    }

    void findRulings() {
        std::unordered_map<std::string_view, const Stamp*> stamps;
        for (const StampedFile& record : job().records) {
            stamps.emplace(record.name, &record.stamp);
        }
        for (const std::string& name : names_) {
            const auto stamp = stamps.find(name);
            rulings_.push_back(stamp == stamps.end()
                                   ? RulingLogs::Ruling()
                                   : logs_.rulingOf(name, isUpToDate(name), *stamp->second));
        }
    }

    [[nodiscard]] bool isUpToDate(const std::string& name) const {
        const auto reason = reasons_.find(name);
        return reason == reasons_.end() || reason->second == Reason::Kind::OutputsUnknown;
    }

    void addRecord(const std::string& name, const RulingLogs::Ruling& ruling) {
        ReportedRecord& record = report_.records.emplace_back();
        record.name = utf8_(name);
        if (const auto refused = refused_.find(name); refused != refused_.end()) {
            record.state = State::Failed;
            record.why = utf8_(refused->second);
            return;
        }
        record.state = stateOf(name, ruling);
        const auto& notes = logs_.logs()[ruling.log].notes;
        if (const auto note = notes.find(name);
            note != notes.end() && record.state != State::NotRun) {
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

    [[nodiscard]] State stateOf(const std::string& name, const RulingLogs::Ruling& ruling) const {
        if (ruling.known == nullptr) {
            return State::NotRun;
        }
        if (ruling.known->state != KnownRecord::State::Made) {
            const bool failed = ruling.known->state == KnownRecord::State::Failed;
            return failed ? State::Failed : State::NotRun;
        }
        if (!isUpToDate(name)) {
            return State::NotRun;
        }
        return logs_.isOfLastRun(ruling) ? State::Made : State::UpToDate;
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

    // The states are known by now, but for what messages fail.
    [[nodiscard]] std::function<bool(RecordPlace record)> wantsTexts() const {
        if (subject_.texts == Texts::OfNone) {
            return {};
        }
        std::vector<bool> wanted(names_.size(), subject_.texts == Texts::OfAll);
        std::size_t failures = 0;
        for (RecordPlace place = 0; place < names_.size(); ++place) {
            if (report_.records[place].state == State::Failed &&
                ++failures <= RunReport::mostFailures) {
                wanted[place] = true;
            }
        }
        return [wanted = std::move(wanted)](RecordPlace record) { return wanted[record]; };
    }

    void addFindings() {
        FindingsRequest request{.logs = logs_.messageSources(subject_.stateFolder),
                                .records = names_,
                                .logOf = {},
                                .patterns = subject_.patterns,
                                .utf8 = utf8_,
                                .wantsTexts = wantsTexts()};
        std::ranges::transform(rulings_, std::back_inserter(request.logOf),
                               &RulingLogs::Ruling::log);
        KeptFindings found = readFindings(services_.files, request);
        countFindings(found, report_.totals);
        for (RecordPlace place = 0; place < names_.size(); ++place) {
            ReportedRecord& record = report_.records[place];
            record.findings = std::move(found.findings[place]);
            record.messages = std::move(found.messages[place]);
            record.messagesLeftOut = found.leftOut[place];
            judge(record, found.judgements[place], found.failing[place]);
        }
        report_.shapes = std::move(found.shapes);
        report_.changes = std::move(found.changes);
        report_.hasRunBefore = found.hasRunBefore;
        report_.runs = std::move(found.runs);
        report_.totals.begun = logs_.lastBegun();
        report_.lastRunIsWhole =
            !report_.runs.empty() && report_.runs.back().begun == report_.totals.begun;
        if (report_.lastRunIsWhole) {
            report_.totals.seconds = report_.runs.back().seconds;
        }
    }

    // As a run with these patterns would: what is not all known would have to be run.
    void judge(ReportedRecord& record, Judgement judgement, std::string_view failing) const {
        if ((record.state != State::Made && record.state != State::UpToDate) ||
            subject_.patterns.failOn.empty() || !report_.findingsAreKnown) {
            return;
        }
        if (judgement == Judgement::Fails) {
            record.state = State::Failed;
            record.why = utf8_(messageFailure(failing));
        } else if (judgement != Judgement::Clean) {
            record.state = State::NotRun;
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
                                        .ofCns = kind.tool == Tool::CNS,
                                        .holdsMessages = holdsMessages(kind)});
        }
    }

    const ReportSubject& subject_;
    const RunnerServices& services_;
    const ToUtf8& utf8_;
    RulingLogs logs_;
    std::vector<std::string> names_;
    std::vector<RulingLogs::Ruling> rulings_;    // of each
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
