#include "runner/run_command.hpp"

#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/argument_list.hpp"
#include "runner/call_text.hpp"
#include "runner/hash.hpp"
#include "runner/inbox.hpp"
#include "runner/judged_messages.hpp"
#include "runner/message_log.hpp"
#include "runner/run.hpp"
#include "runner/visible_text.hpp"

#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

// Results in large pieces: there may be a hundred thousand lines.
class Results {
  public:
    explicit Results(Terminal& terminal) : terminal_(terminal) {}
    Results(const Results&) = delete;
    Results& operator=(const Results&) = delete;
    Results(Results&&) = delete;
    Results& operator=(Results&&) = delete;
    ~Results() = default;

    // What is left. Whether all could be written.
    [[nodiscard]] bool finish() {
        give();
        return written_;
    }

    void add(std::string_view text) {
        waiting_ += text;
        if (waiting_.size() >= piece) {
            give();
        }
    }

  private:
    static constexpr std::size_t piece = 64UZ * 1024;

    void give() {
        written_ = terminal_.write(Stream::Output, waiting_) && written_;
        waiting_.clear();
    }

    Terminal& terminal_;
    std::string waiting_;
    bool written_ = true;
};

JobServices jobServices(const RunnerServices& services) {
    return {.files = services.files,
            .stamps = services.stamps,
            .paths = services.paths,
            .canStart = services.canStart};
}

class DefinitionRun {
  public:
    DefinitionRun(const RunRequest& request, const RunnerServices& services)
        : request_(request),
          services_(services),
          logPath_(joinPath(request.stateFolder, logNameOf(request.job.share))),
          console_(services.terminal, services.clock, request.style,
                   shownPath(services.paths, logPath_)) {}

    ExitStatus run(const BatchDefinition& definition) {
        try {
            auto [job, faults] = checkJob(definition, request_.job, jobServices(services_));
            if (!faults.empty()) {
                return refuse(faults);
            }
            for (const std::string& remark : job.remarks) {
                console_.complain(remark);
            }
            if (request_.remarksBefore) {
                for (const std::string& remark : request_.remarksBefore(job.definition)) {
                    console_.complain(remark);
                }
            }
            KnownFolders folders(services_.files);
            const Products products(job.definition, folders);
            if (!request_.settings.messages.failOn.empty() && !messagesAreKnown(products)) {
                return refuse({std::string(nothingCouldFail)});
            }
            return request_.dryRun ? tellPlan(job, products) : run(job, products);
        } catch (const RunTimeError& error) {
            return refuse({error.record().description + "."});
        }
    }

  private:
    ExitStatus refuse(const std::vector<std::string>& faults) {
        for (const std::string& fault : faults) {
            console_.complain(fault);
        }
        return ExitStatus::NothingRun;
    }

    Plan plan(Job& job, const Products& products, const StateHistory& history,
              const RunConditions& now) const {
        const MessagePatterns& patterns = request_.settings.messages;
        std::vector<JudgedMessages> judged; // of each log
        const auto judge = [&](const std::string& log) {
            const std::string path = joinPath(request_.stateFolder, log);
            judged.push_back(judgeKeptMessages(services_.files, messageLogOf(path), patterns));
        };
        if (!patterns.failOn.empty()) {
            judge(history.ownName);
            for (const OtherLogs::Log& log : history.others.logs) {
                judge(log.name);
            }
        }
        Plan result =
            planRun(job, products, history, now, services_.stamps, request_.settings.all, judged);
        job.listing.reset(); // nobody needs it any longer, and it may be large
        return result;
    }

    StateHistory readHistory() {
        StateHistory history =
            readStateHistory(services_.files, services_.locks, request_.stateFolder,
                             request_.job.share, request_.holder);
        tellDropped("the run log", history.own.torn, history.own.damaged);
        for (const OtherLogs::Log& log : history.others.logs) {
            tellDropped(log.name, log.torn, log.damaged);
        }
        return history;
    }

    void tellDropped(const std::string& log, bool torn, std::size_t damaged) {
        if (torn) {
            console_.complain("The last line of " + log + " was cut short; it is dropped.");
        }
        if (damaged > 0) {
            console_.complain(std::to_string(damaged) + " damaged line(s) of " + log +
                              " are dropped.");
        }
    }

    ExitStatus tellPlan(Job& job, const Products& products) {
        const StateHistory history = readHistory();
        const auto planned =
            plan(job, products, history, conditionsNow(job.definition, products, services_.stamps));
        Results results(services_.terminal);
        for (const auto& [name, why] : job.refused) {
            results.add("refuse  " + visibleText(name) + "  " + visibleText(why) + "\n");
        }
        auto next = planned.toRun.begin();
        for (std::uint32_t record = 0; record < job.records.size(); ++record) {
            const bool runs = next != planned.toRun.end() && next->record == record;
            results.add((runs ? "run     " : "keep    ") + visibleText(job.records[record].name) +
                        "  " + (runs ? reasonText(next->reason, products) : "up to date") + "\n");
            next += runs ? 1 : 0;
        }
        return statusOf(results);
    }

    ExitStatus statusOf(Results& results) {
        if (results.finish()) {
            return ExitStatus::Done;
        }
        console_.complain("The results could not be written.");
        return ExitStatus::SomeFailed;
    }

    // Raises, in a sentence that names the folder.
    std::unique_ptr<StateLock> lockState() {
        try {
            if (!FolderExists(services_.files, request_.stateFolder)) {
                services_.files.createFolder(request_.stateFolder);
            }
            return std::make_unique<StateLock>(
                services_.files, services_.locks,
                StateLock::Request{.folder = request_.stateFolder,
                                   .share = request_.job.share,
                                   .holder = request_.holder,
                                   .times = request_.lockTimes},
                [this](const std::string& sentence) { console_.complain(sentence); });
        } catch (const RunTimeError& error) {
            throw error.described("The folder " +
                                  quoted(shownPath(services_.paths, request_.stateFolder)) +
                                  ", for what is known of runs, cannot be used: " + error.what());
        }
    }

    ExitStatus run(Job& job, const Products& products) {
        const auto lock = lockState();
        if (!lock->refusal().empty()) {
            return refuse({lock->refusal()});
        }
        const WrittenFiles written(products, services_.files, services_.stamps, services_.clock,
                                   temporaryName() + "probe.tmp");
        if (!written.faults().empty()) {
            return refuse(written.faults());
        }
        StateHistory history = readHistory();
        const RunConditions now = conditionsNow(job.definition, products, services_.stamps);
        const Plan planned = plan(job, products, history, now);
        clearLeftovers(products);
        RunLog log(services_.files, logPath_, history.own);
        const std::uint32_t number = history.own.lastRun() + 1;
        history = {};
        const std::string begun = services_.clock.dateAndTime();
        std::optional<MessageLog> messages; // not even looked at where there is nothing to do
        if (!planned.toRun.empty()) {
            messages.emplace(services_.files, messageLogOf(logPath_));
        }
        log.write(RunLine{.run = number, .begun = begun, .conditions = now});
        const RecordServices recordServices{.files = services_.files,
                                            .stamps = services_.stamps,
                                            .paths = services_.paths,
                                            .processes = services_.processes,
                                            .toolText = services_.toolText};
        Inbox<RunMessage>& inbox = listenedInbox();
        keep(*lock);
        const auto summary = runRecords({.job = job,
                                         .products = products,
                                         .plan = planned,
                                         .settings = request_.settings,
                                         .written = written,
                                         .services = recordServices,
                                         .clock = services_.clock,
                                         .run = number,
                                         .temporary = temporaryPath(),
                                         .messages = messages ? &*messages : nullptr},
                                        inbox, log, observers_);
        tellLost(*lock);
        if (summary.logFault.empty()) {
            log.close();
        }
        const bool whole = end({.job = job,
                                .products = products,
                                .summary = summary,
                                .run = number,
                                .begun = begun,
                                .hadWork = messages.has_value()},
                               messages ? &*messages : nullptr);
        const ExitStatus status = statusOf(summary);
        return whole || status != ExitStatus::Done ? status : ExitStatus::SomeFailed;
    }

    // Whether all that was to follow the run could be done.
    bool end(const RunEnd& end, MessageLog* messages) {
        RunEndNotes notes = request_.whenEnded ? request_.whenEnded(end) : RunEndNotes();
        if (end.summary.logFault.empty()) {
            try {
                keepTotals(end, notes, messages);
            } catch (const RunTimeError& error) {
                notes.faults.push_back(
                    "The message log cannot be written: " + error.record().description + ".");
            }
        }
        for (const std::string& sentence : notes.told) {
            console_.tell(sentence);
        }
        for (const std::string& fault : notes.faults) {
            console_.complain(fault);
        }
        return notes.faults.empty();
    }

    void keepTotals(const RunEnd& end, const RunEndNotes& notes, MessageLog* messages) {
        const TotalsLine line{.run = end.run,
                              .totals = notes.totals.value_or(RunTotals()),
                              .findingsAsBefore = notes.findingsAsBefore};
        if (messages != nullptr) {
            if (notes.totals) {
                messages->write(line);
            }
            messages->close();
        } else if (notes.totals) {
            addTotals(services_.files, messageLogOf(logPath_), line);
        }
    }

    // Nobody shall go on with records that another machine has begun, for want of locks there: not
    // even for as long as an order to end would allow.
    void keep(StateLock& lock) {
        lock.keep([inbox = inbox_](const std::string& /*holder*/) {
            inbox->put(Interruption::Ordered);
            inbox->put(Interruption::Ordered);
        });
    }
    void tellLost(const StateLock& lock) {
        if (const std::string holder = lock.lostTo(); !holder.empty()) {
            console_.complain(
                "Another tarnwick-run has begun the same, so that this one has ended: " + holder +
                ".");
        }
    }

    // No other runner has the same: pages of several definitions may lie in one folder, and several
    // shares be at work.
    [[nodiscard]] std::string temporaryName() const {
        const std::string ours = request_.job.share ? logPath_ : request_.stateFolder;
        return "tarnwick-run-" + hexadecimal(hashOf(upperCase(ours))).substr(8) + "-";
    }
    [[nodiscard]] std::string temporaryPath() const {
        return joinPath(request_.stateFolder, temporaryName());
    }

    // What a runner that was killed left of the pages that it was rewriting.
    void clearLeftovers(const Products& products) {
        for (const std::string& name :
             services_.files.listFiles(request_.stateFolder, temporaryName() + "*.tmp").names) {
            const std::string beside = name.substr(0, name.rfind('.')) + "-new.tmp";
            for (const ProductKind& kind : products.kinds()) {
                removeQuietly(services_.files, joinPath(kind.folder, beside));
            }
            removeQuietly(services_.files, joinPath(request_.stateFolder, name));
        }
    }

    // From now on an interruption no longer ends the process. One may come when the run is over,
    // and all that belongs to it: so the listener has a share in the inbox.
    Inbox<RunMessage>& listenedInbox() {
        services_.interruptions.listen(
            [inbox = inbox_](Interruption interruption) { inbox->put(interruption); });
        return *inbox_;
    }

    static ExitStatus statusOf(const RunSummary& summary) {
        if (summary.interruption) {
            return *summary.interruption == Interruption::Asked ? ExitStatus::Interrupted
                                                                : ExitStatus::Terminated;
        }
        const bool allMade = summary.failed == 0 && summary.notRun == 0;
        return allMade ? ExitStatus::Done : ExitStatus::SomeFailed;
    }

    const RunRequest& request_;
    const RunnerServices& services_;
    std::string logPath_;
    Console console_;
    std::array<RunObserver*, 1> observers_{&console_};
    std::shared_ptr<Inbox<RunMessage>> inbox_ = std::make_shared<Inbox<RunMessage>>();
};

} // namespace

std::string stateFolderOf(std::string_view definitionFile) {
    constexpr std::string_view extension = ".ini";
    const auto end = definitionFile.size() - std::min(definitionFile.size(), extension.size());
    const bool named = equalIgnoringCase(definitionFile.substr(end), extension);
    return std::string(named ? definitionFile.substr(0, end) : definitionFile) + ".state";
}

ExitStatus runDefinition(const BatchDefinition& definition, const RunRequest& request,
                         const RunnerServices& services) {
    return DefinitionRun(request, services).run(definition);
}

ExitStatus printCalls(const BatchDefinition& definition, const RunRequest& request,
                      CallFormat format,
                      const std::function<std::string(std::string_view text)>& utf8,
                      const RunnerServices& services) {
    Console console(services.terminal, services.clock, request.style, "");
    const auto [job, faults] = checkJob(definition, request.job, jobServices(services));
    for (const std::string& fault : faults) {
        console.complain(fault);
    }
    if (!faults.empty()) {
        return ExitStatus::NothingRun;
    }
    for (const std::string& remark : job.remarks) {
        console.complain(remark);
    }
    for (const auto& [name, why] : job.refused) {
        console.complain(name + ": " + why + ".");
    }
    KnownFolders folders(services.files);
    const KnownToolPaths paths(services.paths);
    const std::string folder = paths.toolPathOfExisting(job.definition.sInputFolder);
    Results results(services.terminal);
    for (const StampedFile& record : job.records) {
        std::vector<ToolCall> calls;
        for (const auto& [step, command] : recordCalls(job.definition, folders, record.name)) {
            calls.push_back({.program = paths.toolPathOfExisting(command.tool),
                             .arguments = argumentList(command, paths),
                             .folder = folder,
                             .timeLimit = {}});
        }
        switch (format) {
        case CallFormat::Sh:
            results.add(shellLine(calls) + "\n");
            break;
        case CallFormat::Null:
            results.add(shellLine(calls) + '\0');
            break;
        case CallFormat::Json:
            results.add(utf8(jsonLine(record.name, calls)) + "\n");
            break;
        }
    }
    if (!results.finish()) {
        console.complain("The calls could not be written.");
        return ExitStatus::SomeFailed;
    }
    return job.refused.empty() ? ExitStatus::Done : ExitStatus::SomeFailed;
}

} // namespace tarnwick
