#include "runner/state_lock.hpp"

#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "runner/state_logs.hpp"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tarnwick {

StateLock::StateLock(const Files& files, ProcessLocks& locks, Request request,
                     const std::function<void(const std::string& sentence)>& waits)
    : files_(files),
      locks_(locks),
      request_(std::move(request)),
      path_(joinPath(request_.folder, lockNameOf(request_.share))) {
    take();
    if (refusal_.empty()) {
        lookAtOthers();
    }
    if (refusal_.empty()) {
        watchDoubts(waits);
    }
    if (!refusal_.empty()) {
        leave();
        return;
    }
    giveSign();
}

StateLock::~StateLock() {
    if (beating_.joinable()) {
        beating_.request_stop();
        beating_.join();
    }
    leave();
}

// What the file says is taken back, where we have said it.
void StateLock::leave() {
    if (held_ && holderIn(locks_.holderOf(path_)) == request_.holder) {
        try {
            held_->write("");
        } catch (const RunTimeError&) { // NOLINT(bugprone-empty-catch): then others wait for us
        }
    }
    held_.reset();
}

// The thread is not started before: whoever hears of interruptions must be there first.
void StateLock::keep(std::function<void(const std::string& holder)> lost) {
    lost_ = std::move(lost);
    if (!isLost()) {
        beating_ = std::jthread([this](const std::stop_token& stop) { beat(stop); });
    }
}

std::string StateLock::lostTo() const {
    const std::scoped_lock lock(mutex_);
    return lostTo_;
}

// Whoever may be at work elsewhere keeps his word in the file, so that he does not take us for one
// who has it.
void StateLock::take() {
    const std::string before = locks_.holderOf(path_);
    const bool doubtful = isFromElsewhere(before);
    held_ = locks_.tryLock(path_, doubtful ? before : request_.holder);
    if (!held_) {
        refusal_ = refusalBy(request_.share, locks_.holderOf(path_));
    } else if (doubtful) {
        doubts_.push_back(
            {.path = path_, .said = before, .refusal = refusalBy(request_.share, before)});
    }
}

// We have our own lock by now, and so have they: of two who begin at once at least one sees the
// other.
void StateLock::lookAtOthers() {
    std::vector<std::optional<Share>> others(1); // all records
    for (const std::string& name : files_.listFiles(request_.folder, "*.lock").names) {
        if (const auto owner = ownerOfLock(name)) {
            others.push_back(owner->share);
        }
    }
    for (const std::optional<Share>& other : others) {
        const bool apart = request_.share && other && request_.share->count == other->count;
        if (!apart && other != request_.share && refusal_.empty()) {
            lookAt(other);
        }
    }
}

void StateLock::lookAt(const std::optional<Share>& other) {
    const std::string path = joinPath(request_.folder, lockNameOf(other));
    const bool isHeld = locks_.isHeld(path);
    const std::string said = locks_.holderOf(path);
    if (isHeld) {
        refusal_ = refusalBy(other, said);
    } else if (isFromElsewhere(said)) {
        doubts_.push_back({.path = path, .said = said, .refusal = refusalBy(other, said)});
    }
}

void StateLock::watchDoubts(const std::function<void(const std::string& sentence)>& waits) {
    if (doubts_.empty()) {
        return;
    }
    waits("Waiting whether another tarnwick-run is still at work: " +
          holderIn(doubts_.front().said) + ".");
    using Seconds = std::chrono::duration<double>;
    constexpr Seconds betweenLooks(1);
    for (Seconds left(request_.times.watch); left > Seconds(0); left -= betweenLooks) {
        std::this_thread::sleep_for(std::min(left, betweenLooks));
        const auto alive =
            std::ranges::find_if(doubts_, [&](const Doubt& doubt) { return showsLife(doubt); });
        if (alive != doubts_.end()) {
            refusal_ = alive->refusal;
            return;
        }
    }
    doubts_.clear();
}

// Whoever has just ended says nothing any longer, and is no reason to refuse.
bool StateLock::showsLife(const Doubt& doubt) const {
    const std::string now = locks_.holderOf(doubt.path);
    return !now.empty() && now != doubt.said;
}

bool StateLock::isFromElsewhere(const std::string& said) const {
    return !said.empty() && machineOf(said) != machineOf(request_.holder);
}

std::string StateLock::refusalBy(const std::optional<Share>& share, const std::string& said) const {
    const std::string who = ": " + holderIn(said) + ".";
    const std::string begin = "Another tarnwick-run is at work on ";
    if (share == request_.share) {
        return begin + (share ? "share " + wordsOf(*share) + " of " : "") + "this definition" + who;
    }
    return begin +
           (share ? "share " + wordsOf(*share) + " of this definition"
                  : std::string("all records of this definition")) +
           ", so that the same records would be run twice" + who;
}

void StateLock::giveSign() {
    held_->write(request_.holder + "\nsign of life " + std::to_string(++signs_) + "\n");
}

bool StateLock::isLost() {
    const std::string holder = holderIn(locks_.holderOf(path_));
    if (holder.empty() || holder == request_.holder) {
        return false;
    }
    {
        const std::scoped_lock lock(mutex_);
        lostTo_ = holder;
    }
    lost_(holder);
    return true;
}

void StateLock::beat(const std::stop_token& stop) {
    const std::chrono::duration<double> pause(request_.times.beat);
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            waiting_.wait_for(lock, stop, pause, [] { return false; });
        }
        if (stop.stop_requested() || isLost()) {
            return;
        }
        try {
            giveSign();
        } catch (const RunTimeError&) { // NOLINT(bugprone-empty-catch): the next may be written
        }
    }
}

} // namespace tarnwick
