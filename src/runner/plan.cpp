#include "runner/plan.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/name_index.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
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

class Planner {
  public:
    Planner(const Job& job, const Products& products, const RunHistory& history,
            const RunConditions& now, const FileStamps& stamps)
        : job_(job), products_(products), history_(history), stamps_(stamps) {
        for (const auto& [run, conditions] : history.runs) {
            changes_[run] = changeOf(conditions, now);
        }
    }

    Plan plan(bool all, const JudgedMessages* judged) {
        reasons_.resize(job_.records.size());
        known_.resize(job_.records.size());
        for (std::size_t record = 0; record < job_.records.size(); ++record) {
            reasons_[record] = reasonBeforeProducts(record, all);
        }
        lookAtProducts();
        if (judged != nullptr) {
            lookAtMessages(*judged);
        }
        Plan plan;
        for (std::uint32_t record = 0; record < reasons_.size(); ++record) {
            if (const auto& reason = reasons_[record]) {
                plan.toRun.push_back({.record = record, .reason = *reason});
            }
        }
        plan.upToDate = reasons_.size() - plan.toRun.size();
        return plan;
    }

  private:
    std::optional<Reason> reasonBeforeProducts(std::size_t record, bool all) {
        using enum Reason::Kind;
        const StampedFile& file = job_.records[record];
        const auto found = history_.records.find(file.name);
        if (!products_.areKnown()) {
            return Reason{.kind = OutputsUnknown};
        }
        if (all) {
            return Reason{.kind = Asked};
        }
        if (found == history_.records.end()) {
            return Reason{.kind = New};
        }
        const KnownRecord& known = found->second;
        known_[record] = &known;
        if (known.state != KnownRecord::State::Made) {
            return Reason{.kind = known.state == KnownRecord::State::Begun ? Interrupted : Failed};
        }
        const auto change = changes_.find(known.run);
        if (change == changes_.end()) { // the line of its run is damaged
            return Reason{.kind = OtherCommand};
        }
        if (const auto& kind = change->second) {
            return Reason{.kind = *kind};
        }
        if (known.products.size() != products_.kinds().size()) {
            return Reason{.kind = OtherCommand};
        }
        return known.stamp == file.stamp ? std::nullopt
                                         : std::optional(Reason{.kind = RecordChanged});
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
            } else if (isAnythingUpToDate()) {
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

    void lookAtMessages(const JudgedMessages& judged) {
        using enum Reason::Kind;
        for (std::size_t record = 0; record < reasons_.size(); ++record) {
            const auto found = judged.find(job_.records[record].name);
            const bool known = found != judged.end();
            if (!reasons_[record] && (!known || found->second)) {
                reasons_[record] = Reason{.kind = known ? MessageFails : MessagesUnknown};
            }
        }
    }

    // Else no product needs to be looked at.
    [[nodiscard]] bool isAnythingUpToDate() const {
        return std::ranges::any_of(reasons_, [](const auto& reason) { return !reason; });
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
                                                        const NameIndex& index) const {
        const ProductKind& kind = products_.kinds()[place];
        const std::string& name = job_.records[record].name;
        auto stamp = index.find(products_.nameOf(kind, name));
        if (!stamp) { // or it is spelled otherwise, or a listing does not show it
            stamp = stamps_.stampOf(products_.pathOf(kind, name));
        }
        if (!stamp) {
            return Reason{.kind = Reason::Kind::ProductRemoved, .product = place};
        }
        return *stamp == known_[record]->products[place]
                   ? std::nullopt
                   : std::optional(Reason{.kind = Reason::Kind::ProductChanged, .product = place});
    }

    const Job& job_;
    const Products& products_;
    const RunHistory& history_;
    const FileStamps& stamps_;
    std::map<std::uint32_t, std::optional<Reason::Kind>> changes_; // since each run
    std::vector<std::optional<Reason>> reasons_;                   // of each record
    std::vector<const KnownRecord*> known_;                        // likewise
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

Plan planRun(const Job& job, const Products& products, const RunHistory& history,
             const RunConditions& now, const FileStamps& stamps, bool all,
             const JudgedMessages* judged) {
    return Planner(job, products, history, now, stamps).plan(all, judged);
}

} // namespace tarnwick
