#pragma once

#include "platform/files.hpp"
#include "platform/process_lock.hpp"
#include "runner/share.hpp"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tarnwick {

// In seconds.
struct LockTimes {
    double beat = 10;  // between two signs of life
    double watch = 45; // how long somebody on another machine is given to show one

    bool operator==(const LockTimes&) const = default;
};

// Keeps the runs of one state folder apart: two of one share, and those that have records in
// common: a run over all records and a share, or shares of different counts.
//
// The system's lock on a file does that on one machine, and wherever the file system carries it to
// others. It may not. So a holder also leaves a sign of life in the file from time to time and
// takes it away at its end, and whoever finds one from another machine waits whether it changes. No
// machine's clock is compared with another's.
class StateLock {
  public:
    struct Request {
        std::string folder; // the state folder
        std::optional<Share> share;
        std::string holder; // who we are, as RunRequest::holder
        LockTimes times;
    };
    // `waits` is told, in a sentence, when this takes a while. Refers to `files` and `locks`.
    // Raises what ProcessLocks::tryLock and Files::listFiles raise.
    StateLock(const Files& files, ProcessLocks& locks, Request request,
              const std::function<void(const std::string& sentence)>& waits);
    StateLock(const StateLock&) = delete;
    StateLock& operator=(const StateLock&) = delete;
    StateLock(StateLock&&) = delete;
    StateLock& operator=(StateLock&&) = delete;
    ~StateLock();

    // Why the run must not begin, in a sentence. Empty where it may: as long as this lives, no
    // other runner begins one.
    [[nodiscard]] const std::string& refusal() const noexcept { return refusal_; }

    // From now on gives signs of life, on a thread of its own. When somebody on another machine
    // takes the lock all the same, `lost` is called there, once; where that has happened already,
    // it is called before this returns. To be called once, and only where the lock is held.
    void keep(std::function<void(const std::string& holder)> lost);
    // Who that is; empty where nobody has.
    [[nodiscard]] std::string lostTo() const;

  private:
    // Somebody on another machine who may be at work.
    struct Doubt {
        std::string path;
        std::string said;
        std::string refusal; // when he is
    };

    void take();
    void lookAtOthers();
    void lookAt(const std::optional<Share>& other);
    void leave();
    void watchDoubts(const std::function<void(const std::string& sentence)>& waits);
    [[nodiscard]] bool showsLife(const Doubt& doubt) const;
    [[nodiscard]] std::string refusalBy(const std::optional<Share>& share,
                                        const std::string& said) const;
    [[nodiscard]] bool isFromElsewhere(const std::string& said) const;
    void giveSign();
    [[nodiscard]] bool isLost();
    void beat(const std::stop_token& stop);

    const Files& files_;
    ProcessLocks& locks_;
    Request request_;
    std::string path_;
    std::string refusal_;
    std::unique_ptr<HeldLock> held_;
    std::vector<Doubt> doubts_;
    std::uint64_t signs_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable_any waiting_;
    std::string lostTo_; // guarded by mutex_; empty: to nobody
    std::function<void(const std::string& holder)> lost_;
    std::jthread beating_;
};

} // namespace tarnwick
