#pragma once

#include "platform/run_time_error.hpp"
#include "support/watched_files.hpp"

#include <cstddef>
#include <memory>

namespace tarnwick {

// Forwards every call but those that a test breaks. A broken call raises and does nothing, with
// two exceptions that the contracts ask for: canListFolder is false, and a close closes.
class FaultyFiles : public WatchedFiles {
  public:
    // Refers to `files`, which must outlive it.
    explicit FaultyFiles(Files& files);

    // The `nth` call of `operation` from now on raises `error` (1 is the next one); the others
    // pass. A later word about the same operation replaces an earlier one.
    void failAt(FileOperation operation, int nth, const RunTimeError& error);

    // Every call of `operation` from now on raises `error`.
    void failAlways(FileOperation operation, const RunTimeError& error);

    // The disk has room for `bytes` more, over all files; the write that needs more fills it up
    // and raises 61, and so does every later call to that file, its close included.
    void fillDiskAfter(std::size_t bytes);

    // Breaks nothing any more.
    void heal();

  private:
    class Plan;
    FaultyFiles(Files& files, std::shared_ptr<Plan> plan);

    std::shared_ptr<Plan> plan_;
};

} // namespace tarnwick
