#pragma once

#include "platform/process_lock.hpp"

namespace tarnwick {

// The lock is on a byte far behind any content, so that others can read who holds it.
class Win32ProcessLocks : public ProcessLocks {
  public:
    [[nodiscard]] std::unique_ptr<HeldLock> tryLock(std::string_view path,
                                                    std::string_view holder) override;
    [[nodiscard]] std::string holderOf(std::string_view path) const override;
};

} // namespace tarnwick
