#include "runner/clashes.hpp"

#include "common/keep_only.hpp"
#include "common/text.hpp"
#include "runner/hash.hpp"

#include <algorithm>
#include <cstdint>
#include <span>

namespace tarnwick {
namespace {

constexpr std::uint32_t theRecordItself = 0xFFFFFFFF;

// A file that a record is, or that is made of it.
struct Claim {
    std::uint64_t path = 0; // as a number
    std::uint32_t record = 0;
    std::uint32_t kind = theRecordItself; // of Products::kinds
};

class ClashSearch {
  public:
    ClashSearch(Job& job, bool inPlace, const Files& files)
        : job_(job), inPlace_(inPlace), folders_(files), products_(job.definition, folders_) {}

    void refuse() {
        if (!products_.areKnown()) {
            return;
        }
        std::vector<Claim> claims = allClaims();
        std::ranges::sort(claims, {}, &Claim::path);
        refusals_.resize(job_.records.size());
        std::span<const Claim> rest(claims);
        while (!rest.empty()) {
            const auto end = std::ranges::find_if(
                rest, [&](const Claim& claim) { return claim.path != rest.front().path; });
            const auto count = static_cast<std::size_t>(end - rest.begin());
            if (count > 1) {
                judge(rest.first(count));
            }
            rest = rest.subspan(count);
        }
        takeOut();
    }

  private:
    struct Refusal {
        std::uint32_t rank = 0; // the lower, the worse
        std::string why;        // empty: there is none
    };

    std::vector<Claim> allClaims() {
        const auto& kinds = products_.kinds();
        std::vector<Claim> claims;
        claims.reserve(job_.records.size() * (kinds.size() + 1));
        for (std::uint32_t record = 0; record < job_.records.size(); ++record) {
            claims.push_back({.path = numberOf({.record = record}), .record = record});
            for (std::uint32_t kind = 0; kind < kinds.size(); ++kind) {
                Claim claim{.record = record, .kind = kind};
                claim.path = numberOf(claim);
                claims.push_back(claim);
            }
        }
        return claims;
    }

    [[nodiscard]] std::string pathOf(const Claim& claim) const {
        const std::string& record = job_.records[claim.record].name;
        return claim.kind == theRecordItself
                   ? joinPath(job_.definition.sInputFolder, record)
                   : products_.pathOf(products_.kinds()[claim.kind], record);
    }

    [[nodiscard]] std::uint64_t numberOf(const Claim& claim) const {
        return hashOf(upperCase(pathOf(claim)));
    }

    // The claims have one number, and so, nearly always, one path. There may be very many: each is
    // held against a few that stand for all.
    void judge(std::span<const Claim> claims) {
        std::vector<const Claim*> others{&claims.front()};
        const auto add = [&](const auto& isWanted) {
            if (const auto found = std::ranges::find_if(claims, isWanted); found != claims.end()) {
                others.push_back(&*found);
            }
        };
        add([&](const Claim& claim) { return claim.record != claims.front().record; });
        add([](const Claim& claim) { return claim.kind == theRecordItself; });
        for (const Claim& one : claims) {
            for (const Claim* const other : others) {
                if (&one != other && one.kind != theRecordItself &&
                    equalIgnoringCase(pathOf(one), pathOf(*other))) {
                    judge(one, *other);
                }
            }
        }
    }

    // To overwrite a record is the worst; else the first of several products is told.
    void judge(const Claim& one, const Claim& other) {
        Refusal& refusal = refusals_[one.record];
        const std::uint32_t rank = other.kind == theRecordItself ? 0 : 1 + one.kind;
        if (!refusal.why.empty() && refusal.rank <= rank) {
            return;
        }
        const std::string& otherName = job_.records[other.record].name;
        if (one.record == other.record) {
            if (other.kind == theRecordItself && !inPlace_) {
                refusal = {rank, "what is made of it would overwrite it; --in-place allows that"};
            }
        } else if (other.kind == theRecordItself) {
            refusal = {rank, "what is made of it would overwrite the record " + quoted(otherName)};
        } else {
            const std::string name =
                products_.nameOf(products_.kinds()[one.kind], job_.records[one.record].name);
            refusal = {rank, quoted(otherName) + " would make the same file, " + quoted(name)};
        }
    }

    void takeOut() {
        std::vector<bool> kept;
        kept.reserve(refusals_.size());
        for (std::size_t record = 0; record < refusals_.size(); ++record) {
            std::string& why = refusals_[record].why;
            kept.push_back(why.empty());
            if (!why.empty()) {
                job_.refused.push_back({.name = job_.records[record].name, .why = std::move(why)});
            }
        }
        keepOnly(kept, job_.records);
    }

    Job& job_;
    bool inPlace_;
    KnownFolders folders_;
    Products products_;
    std::vector<Refusal> refusals_; // of each record
};

} // namespace

void refuseClashes(Job& job, bool inPlace, const Files& files) {
    ClashSearch(job, inPlace, files).refuse();
}

} // namespace tarnwick
