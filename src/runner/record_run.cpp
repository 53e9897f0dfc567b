#include "runner/record_run.hpp"

#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "postprocess/relative_links.hpp"
#include "runner/argument_list.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {

RecordRun::RecordRun(const Job& job, const Products& products, const RunSettings& settings,
                     const WrittenFiles& written, const RecordServices& services,
                     std::string temporary)
    : job_(job),
      products_(products),
      settings_(settings),
      written_(written),
      services_(services),
      paths_(services.paths),
      folders_(services.files),
      temporary_(std::move(temporary)),
      reports_(static_cast<std::size_t>(std::ranges::count_if(products.kinds(), holdsMessages))) {}

RecordOutcome RecordRun::run(const std::string& record) {
    RecordOutcome outcome = attempt(record);
    for (std::size_t more = settings_.retries;
         more > 0 && outcome.result == RecordOutcome::Result::Failed && !wasAskedToEnd(outcome);
         --more) {
        outcome = attempt(record);
    }
    judgeMessages(outcome);
    return outcome;
}

RecordOutcome RecordRun::attempt(const std::string& record) {
    RecordOutcome outcome;
    outcome.record = record;
    reportsRead_ = 0;
    try {
        makeProducts(outcome);
    } catch (const RunTimeError& error) {
        outcome.result = RecordOutcome::Result::Failed;
        outcome.why = error.record().description;
    }
    if (reportsRead_ < reports_) {
        outcome.messages.reset();
    }
    return outcome;
}

void RecordRun::makeProducts(RecordOutcome& outcome) {
    const std::string path = joinPath(job_.definition.sInputFolder, outcome.record);
    const auto stamp = services_.stamps.stampOfExact(path);
    if (!stamp) {
        outcome.why = "the record is no longer there";
        return;
    }
    outcome.stamp = *stamp;
    const auto calls = recordCalls(job_.definition, folders_, outcome.record);
    for (const RecordCall& call : calls) {
        if (!makeCall(call, outcome)) {
            return;
        }
        if (rewritesLinksAfter(job_.definition, call.step.tool)) {
            rewriteLinks(call, outcome.record);
        }
    }
    takeStamps(outcome);
}

// Whether the next call can follow.
bool RecordRun::makeCall(const RecordCall& call, RecordOutcome& outcome) {
    const Tool tool = call.step.tool;
    const Stamps before = stampsOf(tool, outcome.record);
    CallOutcome& made = outcome.calls.emplace_back();
    made.tool = tool;
    made.call = {.program = paths_.toolPathOfExisting(call.command.tool),
                 .arguments = argumentList(call.command, paths_),
                 .folder = paths_.toolPathOfExisting(job_.definition.sInputFolder),
                 .timeLimit = settings_.timeLimit};
    made.end = services_.processes.run(made.call);
    if (made.end.kind == ToolEnd::Kind::Halted) {
        outcome.result = RecordOutcome::Result::Interrupted;
        outcome.why = failureText(made);
    } else if (!isAccepted(made.end)) {
        outcome.why = failureText(made);
    } else {
        outcome.why = missingProduct(tool, outcome.record, before);
        if (!outcome.why.empty()) {
            outcome.why = std::string(nameOf(tool)) + " ended with status " +
                          std::to_string(made.end.code) + ", but " + outcome.why;
        }
    }
    if (made.end.kind != ToolEnd::Kind::Halted) {
        takeMessages(tool, before, outcome);
    }
    if (!outcome.why.empty()) {
        removeProducts(tool, outcome.record, before);
    }
    return outcome.why.empty();
}

bool RecordRun::isAccepted(const ToolEnd& end) const {
    return end.kind == ToolEnd::Kind::Exited &&
           std::ranges::find(settings_.accept, end.code) != settings_.accept.end();
}

// In the places of other tools' products, nothing.
RecordRun::Stamps RecordRun::stampsOf(Tool tool, const std::string& record) const {
    Stamps stamps;
    for (const ProductKind& kind : products_.kinds()) {
        stamps.push_back(kind.tool == tool
                             ? services_.stamps.stampOfExact(products_.pathOf(kind, record))
                             : std::nullopt);
    }
    return stamps;
}

std::string RecordRun::missingProduct(Tool tool, const std::string& record,
                                      const Stamps& before) const {
    const Stamps after = stampsOf(tool, record);
    for (std::size_t place = 0; place < after.size(); ++place) {
        const ProductKind& kind = products_.kinds()[place];
        if (kind.tool != tool) {
            continue;
        }
        const auto& stamp = after[place];
        if (!stamp) {
            return "did not make " + quoted(products_.nameOf(kind, record));
        }
        if (!written_.mayBeWritten(place, before[place], *stamp)) {
            return "did not write " + quoted(products_.nameOf(kind, record)) +
                   ": the one that is there is older";
        }
    }
    return {};
}

// What the tool has said of the record, be it made or not; a report that was there before says
// nothing of this call. One that cannot be read is as good as none.
void RecordRun::takeMessages(Tool tool, const Stamps& before, RecordOutcome& outcome) {
    for (std::size_t place = 0; place < products_.kinds().size(); ++place) {
        const ProductKind& kind = products_.kinds()[place];
        if (kind.tool != tool || !holdsMessages(kind)) {
            continue;
        }
        const std::string path = products_.pathOf(kind, outcome.record);
        try {
            const auto after = services_.stamps.stampOfExact(path);
            if (after && after->size > largestReport) {
                return; // what it says is not known
            }
            if (after && written_.mayBeWritten(place, before[place], *after)) {
                RecordMessages& messages =
                    outcome.messages ? *outcome.messages : outcome.messages.emplace();
                readMessages(*services_.files.openForReading(path), after->size, settings_.messages,
                             messages, services_.toolText);
                ++reportsRead_;
            }
        } catch (const RunTimeError&) {
            return;
        }
    }
}

// Whoever insists on certain messages not being there must also know them all. The products are
// whole, and stay.
void RecordRun::judgeMessages(RecordOutcome& outcome) const {
    if (outcome.result != RecordOutcome::Result::Made || settings_.messages.failOn.empty()) {
        return;
    }
    if (!outcome.messages) {
        outcome.why = "what the tools say of it could not be read";
    } else if (!outcome.messages->failing.empty()) {
        outcome.why = messageFailure(outcome.messages->failing);
    } else {
        return;
    }
    outcome.result = RecordOutcome::Result::Failed;
    outcome.products.clear();
}

// What a call that failed has left, so that nobody takes it for whole. What was there before and
// was not written stays.
void RecordRun::removeProducts(Tool tool, const std::string& record, const Stamps& before) {
    if (settings_.keepPartial) {
        return;
    }
    const Stamps after = stampsOf(tool, record);
    for (std::size_t place = 0; place < after.size(); ++place) {
        if (isRecordItself(products_.kinds()[place], record)) {
            continue; // however little is left of it
        }
        const auto& stamp = after[place];
        if (stamp && written_.mayBeWritten(place, before[place], *stamp)) {
            removeQuietly(services_.files, products_.pathOf(products_.kinds()[place], record));
        }
    }
}

// A page whose links lead by full paths is not what was asked for: as with a call that failed, it
// does not stay.
void RecordRun::rewriteLinks(const RecordCall& call, const std::string& record) {
    try {
        static_cast<void>(rewriteRecordLinks(job_.definition, services_.files, folders_, paths_,
                                             call.step.sFile, temporary_));
    } catch (const RunTimeError& error) {
        for (const ProductKind& kind : products_.kinds()) {
            if (!settings_.keepPartial && (kind.label == "html" || kind.label == "faq")) {
                removeQuietly(services_.files, products_.pathOf(kind, record));
            }
        }
        throw error.described(std::string("its links could not be made relative: ") + error.what());
    }
}

void RecordRun::takeStamps(RecordOutcome& outcome) const {
    for (const ProductKind& kind : products_.kinds()) {
        const auto stamp = services_.stamps.stampOfExact(products_.pathOf(kind, outcome.record));
        if (!stamp) {
            outcome.why = quoted(products_.nameOf(kind, outcome.record)) + " is gone again";
            outcome.products.clear();
            return;
        }
        outcome.products.push_back(*stamp);
    }
    for (std::size_t place = 0; place < outcome.products.size(); ++place) {
        if (isRecordItself(products_.kinds()[place], outcome.record)) {
            outcome.stamp = outcome.products[place];
        }
    }
    outcome.result = RecordOutcome::Result::Made;
}

// Where the user allows it, a record is one of its own products.
bool RecordRun::isRecordItself(const ProductKind& kind, const std::string& record) const {
    return equalIgnoringCase(products_.pathOf(kind, record),
                             joinPath(job_.definition.sInputFolder, record));
}

} // namespace tarnwick
