#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// In bytes. What stands behind that in the file is nobody's name.
inline constexpr std::size_t longestHolder = 4096;

// Held as long as it lives. The system gives it free when the process ends in whatever way.
class HeldLock {
  public:
    virtual ~HeldLock() = default;

    // Replaces what the lock file says. Raises 61, 57.
    virtual void write(std::string_view holder) = 0;
};

// One process at a time, by a file.
class ProcessLocks {
  public:
    virtual ~ProcessLocks() = default;

    // Takes the lock that is the file `path`, making it where there is none, and writes `holder`
    // into it, for whoever comes next. Null where another process (or this one) holds it.
    // Where it is held, that may take a second to be certain.
    // Raises 75 (not allowed), 76, 61, 70.
    [[nodiscard]] virtual std::unique_ptr<HeldLock> tryLock(std::string_view path,
                                                            std::string_view holder) = 0;

    // Whether a process holds it now. Nobody is kept from taking it by the question. Never raises:
    // false where that cannot be told.
    [[nodiscard]] virtual bool isHeld(std::string_view path) const = 0;

    // What the holder wrote, as far as it can be read, and at most longestHolder; else empty. Never
    // raises.
    [[nodiscard]] virtual std::string holderOf(std::string_view path) const = 0;
};

} // namespace tarnwick
