#include "runner/plan.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/name_index.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

namespace tarnwick {
namespace {

std::optional<Stamp> stampIf(bool used, const FileStamps& stamps, const std::string& path) {
    return used ? stamps.stampOf(path) : std::nullopt;
}

// Why nothing that was made under the earlier conditions holds; nothing where it does.
std::optional<Reason::Kind> changeOf(const RunConditions& before, const RunConditions& now) {
    using enum Reason::Kind;
    if (before.commands != now.commands) {
        return OtherCommand;
    }
    if (before.configuration != now.configuration) {
        return ConfigurationChanged;
    }
    if (before.aliases != now.aliases) {
        return AliasesChanged;
    }
    if (before.cns != now.cns) {
        return CnsChanged;
    }
    return before.mp != now.mp ? std::optional(MpChanged) : std::nullopt;
}

using Changes = std::map<std::uint32_t, std::optional<Reason::Kind>>; // since each run of a log

Changes changesSince(const std::map<std::uint32_t, RunConditions>& runs, const RunConditions& now) {
    Changes changes;
    for (const auto& [run, conditions] : runs) {
        changes[run] = changeOf(conditions, now);
    }
    return changes;
}

class Planner {
  public:
    Planner(const Job& job, const Products& products, const StateHistory& history,
            const RunConditions& now, const FileStamps& stamps)
        : job_(job),
          products_(products),
          history_(history),
          stamps_(stamps),
          changes_(changesSince(history.own.runs, now)) {
        for (const OtherLogs::Log& log : history.others.logs) {
            changesElsewhere_.push_back(changesSince(log.runs, now));
        }
    }

    Plan plan(bool all, std::span<const JudgedMessages> judged) {
        reasons_.resize(job_.records.size());
        known_.resize(job_.records.size());
        for (std::uint32_t record = 0; record < job_.records.size(); ++record) {
            reasons_[record] = reasonBeforeProducts(record, all);
        }
        lookAtProducts();
        if (!judged.empty()) {
            lookAtMessages(judged);
        }
        for (std::uint32_t record = 0; record < reasons_.size(); ++record) {
            if (const auto& reason = reasons_[record]) {
                plan_.toRun.push_back({.record = record, .reason = *reason});
            }
        }
        plan_.upToDate = reasons_.size() - plan_.toRun.size();
        return std::move(plan_);
    }

  private:
    std::optional<Reason> reasonBeforeProducts(std::uint32_t record, bool all) {
        using enum Reason::Kind;
        const bool begun = findBegun(record);
        if (!products_.areKnown()) {
            return Reason{.kind = OutputsUnknown};
        }
        if (all) {
            return Reason{.kind = Asked};
        }
        return begun ? Reason{.kind = Interrupted} : reasonOfKnown(record);
    }

    // Whether a killed run had it in work, and nobody has made it since who knew of that.
    bool findBegun(std::uint32_t record) {
        using enum KnownRecord::State;
        const std::string& name = job_.records[record].name;
        const auto own = history_.own.records.find(name);
        bool begun = own != history_.own.records.end() && own->second.state == Begun &&
                     !history_.isSettled(name, history_.ownName, own->second.run);
        forEachElsewhere(name, [&](const OtherKnown& other) {
            const std::string& log = history_.others.logs[other.log].name;
            if (other.known.state == Begun && !history_.isSettled(name, log, other.known.run)) {
                plan_.toSettle.push_back({.record = record, .log = log, .run = other.known.run});
                begun = true;
            }
        });
        return begun;
    }

    // Of what the logs say of the record, all that may be true is kept for a look at the products.
    // Where nothing is, the first reason is told: that of the own log, if it has one.
    std::optional<Reason> reasonOfKnown(std::uint32_t record) {
        std::optional<Reason> reason;
        const StampedFile& file = job_.records[record];
        const auto look = [&](const KnownRecord& known, const Changes& changes) {
            const auto wrong = reasonOf(known, changes, file.stamp);
            if (wrong) {
                reason = reason ? reason : wrong;
            } else if (known_[record] == nullptr) {
                known_[record] = &known;
            } else {
                alsoKnown_[record].push_back(&known);
            }
        };
        const auto own = history_.own.records.find(file.name);
        if (own != history_.own.records.end()) {
            look(own->second, changes_);
        }
        forEachElsewhere(file.name, [&](const OtherKnown& other) {
            look(other.known, changesElsewhere_[other.log]);
        });
        if (known_[record] != nullptr) {
            return std::nullopt;
        }
        return reason ? reason : Reason{.kind = Reason::Kind::New};
    }

    // Why that is no longer true; nothing where it may be.
    [[nodiscard]] std::optional<Reason> reasonOf(const KnownRecord& known, const Changes& changes,
                                                 const Stamp& now) const {
        using enum Reason::Kind;
        if (known.state != KnownRecord::State::Made) {
            return Reason{.kind = known.state == KnownRecord::State::Begun ? Interrupted : Failed};
        }
        const auto change = changes.find(known.run);
        if (change == changes.end()) { // the line of its run is damaged
            return Reason{.kind = OtherCommand};
        }
        if (const auto& kind = change->second) {
            return Reason{.kind = *kind};
        }
        if (known.products.size() != products_.kinds().size()) {
            return Reason{.kind = OtherCommand};
        }
        return known.stamp == now ? std::nullopt : std::optional(Reason{.kind = RecordChanged});
    }

    template <typename Look>
    void forEachElsewhere(const std::string& record, const Look& look) const {
        const auto& records = history_.others.records;
        if (records.empty()) {
            return;
        }
        const auto [first, last] = records.equal_range(record);
        for (auto entry = first; entry != last; ++entry) {
            look(entry->second);
        }
    }

    // Folder by folder, so that one listing at a time is held.
    void lookAtProducts() {
        std::set<std::string> folders;
        for (const ProductKind& kind : products_.kinds()) {
            folders.insert(upperCase(kind.folder));
        }
        const std::string input = upperCase(withBackslash(job_.definition.sInputFolder));
        for (const std::string& folder : folders) {
            if (folder == input && job_.listing) {
                lookAtProductsIn(folder, *job_.listing);
            } else if (areFewUpToDate()) {
                lookAtProductsIn(folder, {});
            } else {
                lookAtProductsIn(folder, stamps_.listStamped(spelled(folder)));
            }
        }
    }

    [[nodiscard]] std::string spelled(const std::string& folder) const {
        for (const ProductKind& kind : products_.kinds()) {
            if (equalIgnoringCase(kind.folder, folder)) {
                return kind.folder;
            }
        }
        return folder;
    }

    void lookAtMessages(std::span<const JudgedMessages> judged) {
        using enum Reason::Kind;
        for (std::size_t record = 0; record < reasons_.size(); ++record) {
            if (reasons_[record]) {
                continue;
            }
            const std::string& name = job_.records[record].name;
            const JudgedMessages& ofLog = judged[logOf(name, known_[record])];
            const auto found = ofLog.find(name);
            switch (found == ofLog.end() ? Judgement::Unknown : found->second) {
            case Judgement::Clean:
                break;
            case Judgement::Fails:
                reasons_[record] = Reason{.kind = MessageFails};
                break;
            case Judgement::PartlyKnown:
                reasons_[record] = Reason{.kind = MessagesPartlyKnown};
                break;
            case Judgement::Unknown:
                reasons_[record] = Reason{.kind = MessagesUnknown};
                break;
            }
        }
    }

    // The log that has it: 0 is the own one, 1 the first of the others.
    [[nodiscard]] std::size_t logOf(const std::string& name, const KnownRecord* known) const {
        std::size_t log = 0;
        forEachElsewhere(name, [&](const OtherKnown& other) {
            log = &other.known == known ? other.log + 1 : log;
        });
        return log;
    }

    // So that to ask for each of their products is less than to list all that are there; none at
    // all among them.
    [[nodiscard]] bool areFewUpToDate() const {
        constexpr std::size_t many = 50;
        const auto count = static_cast<std::size_t>(
            std::ranges::count_if(reasons_, [](const auto& reason) { return !reason; }));
        const std::size_t all = job_.listing ? job_.listing->files.size() : 0;
        return count * many <= all;
    }

    void lookAtProductsIn(const std::string& folder, const StampedListing& listing) {
        const NameIndex index(listing.files);
        for (std::uint32_t kind = 0; kind < products_.kinds().size(); ++kind) {
            if (!equalIgnoringCase(products_.kinds()[kind].folder, folder)) {
                continue;
            }
            for (std::size_t record = 0; record < reasons_.size(); ++record) {
                if (!reasons_[record]) {
                    reasons_[record] = reasonOfProduct(record, kind, index);
                }
            }
        }
    }

    [[nodiscard]] std::optional<Reason> reasonOfProduct(std::size_t record, std::uint32_t place,
                                                        const NameIndex& index) {
        const ProductKind& kind = products_.kinds()[place];
        const std::string& name = job_.records[record].name;
        auto stamp = index.find(products_.nameOf(kind, name));
        if (!stamp) { // or there is no listing, or it is spelled otherwise there, or not shown
            stamp = stamps_.stampOf(products_.pathOf(kind, name));
        }
        if (!stamp) {
            return Reason{.kind = Reason::Kind::ProductRemoved, .product = place};
        }
        return isAsKnown(record, place, *stamp)
                   ? std::nullopt
                   : std::optional(Reason{.kind = Reason::Kind::ProductChanged, .product = place});
    }

    // What is known of the record from now on is what fits this product, too.
    bool isAsKnown(std::size_t record, std::uint32_t place, const Stamp& stamp) {
        const auto fits = [&](const KnownRecord* known) { return known->products[place] == stamp; };
        const auto also = alsoKnown_.find(record);
        if (also == alsoKnown_.end()) {
            return fits(known_[record]);
        }
        std::erase_if(also->second, [&](const KnownRecord* known) { return !fits(known); });
        if (!fits(known_[record])) {
            if (also->second.empty()) {
                return false;
            }
            known_[record] = also->second.back();
            also->second.pop_back();
        }
        return true;
    }

    const Job& job_;
    const Products& products_;
    const StateHistory& history_;
    const FileStamps& stamps_;
    Changes changes_;                            // since the runs of the own log
    std::vector<Changes> changesElsewhere_;      // likewise of the others
    std::vector<std::optional<Reason>> reasons_; // of each record
    std::vector<const KnownRecord*> known_;      // likewise: that it was made, if it is true
    std::unordered_map<std::size_t, std::vector<const KnownRecord*>> alsoKnown_; // by other runs
    Plan plan_;
};

} // namespace

std::string reasonText(const Reason& reason, const Products& products) {
    using enum Reason::Kind;
    switch (reason.kind) {
    case New:
        return "new";
    case Interrupted:
        return "was in work when its last run ended";
    case Failed:
        return "failed last time";
    case OtherCommand:
        return "another command";
    case ConfigurationChanged:
        return "configuration file changed";
    case AliasesChanged:
        return "aliases file changed";
    case CnsChanged:
        return "CNS changed";
    case MpChanged:
        return "MP changed";
    case RecordChanged:
        return "record changed";
    case ProductRemoved:
        return products.kinds()[reason.product].label + " was removed";
    case ProductChanged:
        return products.kinds()[reason.product].label + " was changed";
    case Asked:
        return "all are to run";
    case OutputsUnknown:
        return "its outputs are not known";
    case MessagesUnknown:
        return "what the tools say of it is not known";
    case MessagesPartlyKnown:
        return "not all that the tools say of it is known";
    case MessageFails:
        return "what the tools say of it fails it";
    }
    return {};
}

RunConditions conditionsNow(const BatchDefinition& job, const Products& products,
                            const FileStamps& stamps) {
    return {.commands = products.commandsHash(),
            .mp = stampIf(job.iProcessMP == checked, stamps, job.sMPExecutable),
            .cns = stampIf(job.iProcessCNS == checked, stamps, job.sCNSExecutable),
            .configuration = stampIf(job.bUseConfigFile == checked, stamps, job.sConfigFile),
            .aliases = stampIf(job.iProcessCNS == checked && job.bUseAliases == checked, stamps,
                               job.sAliasesFile)};
}

Plan planRun(const Job& job, const Products& products, const StateHistory& history,
             const RunConditions& now, const FileStamps& stamps, bool all,
             std::span<const JudgedMessages> judged) {
    return Planner(job, products, history, now, stamps).plan(all, judged);
}

} // namespace tarnwick
