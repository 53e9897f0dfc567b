#include "runner/run.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/slots.hpp"

#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

// How long nothing may happen before the observers are told, in seconds.
constexpr double aMoment = 1;

std::vector<CallNote> notesOf(const std::vector<CallOutcome>& calls) {
    std::vector<CallNote> notes;
    notes.reserve(calls.size());
    for (const CallOutcome& call : calls) {
        notes.push_back({.tool = call.tool, .code = call.end.code, .seconds = call.end.seconds});
    }
    return notes;
}

// Whether the record runs although its last line in the log says that it is made. Should this run
// be killed, only a line that says it has begun makes the next one do the record again.
bool wasUpToDate(Reason::Kind reason) {
    using enum Reason::Kind;
    return reason == Asked || reason == MessagesUnknown || reason == MessagesPartlyKnown ||
           reason == MessageFails;
}

class OwnedRun {
  public:
    OwnedRun(const RunParts& parts, Inbox<RunMessage>& inbox, RunLog& log,
             std::span<RunObserver* const> observers)
        : parts_(parts), inbox_(inbox), log_(log), observers_(observers) {
        const std::size_t jobs = parts.products.areKnown() ? parts.settings.jobs : 1;
        for (std::size_t slot = 0; slot < jobs; ++slot) {
            workers_.emplace_back(parts.job, parts.products, parts.settings, parts.written,
                                  parts.services, parts.temporary + std::to_string(slot));
        }
    }

    RunSummary run() {
        const double begun = parts_.clock.steadySeconds();
        summary_.failed = parts_.job.refused.size();
        summary_.upToDate = parts_.plan.upToDate;
        tell([&](RunObserver& observer) {
            observer.planned(parts_.job, parts_.products, parts_.plan);
        });
        work();
        summary_.notRun += parts_.plan.toRun.size() - next_;
        summary_.seconds = parts_.clock.steadySeconds() - begun;
        tell([&](RunObserver& observer) { observer.ended(summary_); });
        return summary_;
    }

  private:
    void work() {
        Slots slots(workers_.size(), [&](std::size_t slot, std::uint32_t record) {
            inbox_.put(RecordStarted{record});
            inbox_.put(workers_[slot].run(parts_.job.records[record].name));
        });
        slots_ = &slots; // as long as they work
        handOut();
        while (given_ > 0) {
            if (auto message = inbox_.take(untilNextLook())) {
                std::visit([&](auto& what) { hear(what); }, *message);
                handOut();
                judgeEnded(false);
            } else {
                judgeEnded(true);
                tell([](RunObserver& observer) { observer.idle(); });
            }
            endWhatIsLate();
        }
        slots_ = nullptr;
    }

    // As many as are worked on, and one more each, so that no slot waits for us.
    void handOut() {
        while (!ending_ && given_ < 2 * workers_.size() && next_ < parts_.plan.toRun.size()) {
            const PlannedRecord& planned = parts_.plan.toRun[next_];
            // What the log says of it holds no longer, from the first tool on.
            if (wasUpToDate(planned.reason.kind) &&
                !write(BegunLine{.run = parts_.run,
                                 .record = parts_.job.records[planned.record].name})) {
                return;
            }
            slots_->give(planned.record);
            ++next_;
            ++given_;
        }
    }

    void hear(const RecordStarted& started) {
        tell([&](RunObserver& observer) {
            observer.started(parts_.job.records[started.record].name);
        });
    }

    // A tool that was asked to end did not fail, when we are asked as well: which may come a moment
    // later.
    void hear(RecordOutcome& outcome) {
        if (wasAskedToEnd(outcome)) {
            ended_.push_back(std::move(outcome));
            endedUntil_ = parts_.clock.steadySeconds() + aMoment;
        } else {
            take(outcome);
        }
    }

    void judgeEnded(bool nothingCame) {
        const bool ordered = summary_.interruption == Interruption::Ordered;
        const bool isTime = ordered || nothingCame || parts_.clock.steadySeconds() >= endedUntil_;
        if (ended_.empty() || !isTime) {
            return;
        }
        for (RecordOutcome& outcome : std::exchange(ended_, {})) {
            if (ordered) {
                outcome.result = RecordOutcome::Result::Interrupted;
            }
            take(outcome);
        }
        handOut();
    }

    void take(const RecordOutcome& outcome) {
        --given_;
        using enum RecordOutcome::Result;
        switch (outcome.result) {
        case Made:
            ++summary_.made;
            break;
        case Failed:
            ++summary_.failed;
            ++failures_;
            break;
        case Interrupted:
            ++summary_.notRun;
            break;
        }
        tell([&](RunObserver& observer) { observer.finished(outcome); });
        write(outcome);
        if (failures_ == parts_.settings.stopAfter && outcome.result == Failed && !ending_) {
            endHandingOut();
            tell([](RunObserver& observer) { observer.stopped(); });
        }
    }

    // After the first interruption what runs may end, for as long as there is time.
    void hear(Interruption interruption) {
        const bool ordered = interruption == Interruption::Ordered;
        const std::optional<double> notice = parts_.settings.notice;
        const bool now = summary_.interruption || (ordered && !notice);
        summary_.interruption = interruption;
        endHandingOut();
        if (now) {
            endTools();
            return;
        }
        if (ordered &&
            notice) { // the other half is for what is to be done when the tools have ended
            deadline_ = parts_.clock.steadySeconds() + *notice / 2;
        }
        tell([&](RunObserver& observer) { observer.ending(false, interruption); });
    }

    void endTools() {
        deadline_.reset();
        tell([&](RunObserver& observer) { observer.ending(true, *summary_.interruption); });
        parts_.services.processes.halt();
    }

    void endWhatIsLate() {
        if (deadline_ && parts_.clock.steadySeconds() >= *deadline_) {
            endTools();
        }
    }

    [[nodiscard]] double untilNextLook() const {
        return deadline_ ? std::clamp(*deadline_ - parts_.clock.steadySeconds(), 0.0, aMoment)
                         : aMoment;
    }

    void endHandingOut() {
        ending_ = true;
        const auto dropped = slots_->drop();
        given_ -= dropped;
        summary_.notRun += dropped;
    }

    void write(const RecordOutcome& outcome) {
        if (outcome.result == RecordOutcome::Result::Interrupted) {
            return; // the log still says what held before, or nothing
        }
        writeMessages(outcome); // first: of what counts as made they are known
        static_cast<void>(write(RecordLine{.run = parts_.run,
                                           .record = outcome.record,
                                           .why = outcome.why,
                                           .stamp = outcome.stamp,
                                           .calls = notesOf(outcome.calls),
                                           .products = outcome.products}));
        if (outcome.result == RecordOutcome::Result::Made) {
            settle(outcome.record);
        }
    }

    // There are none but after a run of another log was killed.
    void settle(const std::string& record) {
        for (const BegunElsewhere& begun : parts_.plan.toSettle) {
            if (parts_.job.records[begun.record].name == record) {
                static_cast<void>(write(SettledLine{
                    .run = parts_.run, .record = record, .log = begun.log, .begunIn = begun.run}));
            }
        }
    }

    void writeMessages(const RecordOutcome& outcome) {
        if (parts_.messages == nullptr || !messagesAreKnown(parts_.products)) {
            return;
        }
        MessagesLine line{
            .run = parts_.run, .record = outcome.record, .known = outcome.messages.has_value()};
        if (outcome.messages) {
            line.messages = outcome.messages->kept;
            if (outcome.messages->isPart) {
                const bool isClean = outcome.messages->failing.empty();
                line.missing = {.leftOut = outcome.messages->leftOut,
                                .judgedBy = isClean ? parts_.settings.messages.mark() : 0};
            }
        }
        static_cast<void>(writeInto(*parts_.messages, line));
    }

    bool write(const LogLine& line) { return writeInto(log_, line); }

    // Work that nobody could know of afterwards is not begun.
    template <typename Log, typename Line>
    bool writeInto(Log& log, const Line& line) {
        if (!summary_.logFault.empty()) {
            return false;
        }
        try {
            log.write(line);
            return true;
        } catch (const RunTimeError& error) {
            summary_.logFault = error.record().description;
            endHandingOut();
            return false;
        }
    }

    template <typename Call>
    void tell(const Call& call) {
        for (RunObserver* const observer : observers_) {
            call(*observer);
        }
    }

    const RunParts& parts_;
    Inbox<RunMessage>& inbox_;
    RunLog& log_;
    std::span<RunObserver* const> observers_;
    std::deque<RecordRun> workers_; // one for each slot
    Slots* slots_ = nullptr;        // while it works
    std::size_t next_ = 0;          // of the plan
    std::size_t given_ = 0;         // and not heard of again
    std::size_t failures_ = 0;
    bool ending_ = false;
    std::vector<RecordOutcome> ended_; // whose tools were asked to end; not judged yet
    double endedUntil_ = 0;            // when that is done at the latest, by the clock
    std::optional<double> deadline_;   // when running tools are ended, by the clock
    RunSummary summary_;
};

} // namespace

RunSummary runRecords(const RunParts& parts, Inbox<RunMessage>& inbox, RunLog& log,
                      std::span<RunObserver* const> observers) {
    return OwnedRun(parts, inbox, log, observers).run();
}

} // namespace tarnwick
