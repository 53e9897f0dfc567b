#pragma once

#include "platform/process_lock.hpp"

namespace tarnwick {

// The lock is on two bytes far behind any content, so that others can read who holds it. The first
// is for those who want it. Whoever has that takes the second, too; it is for the others, who look
// whether they could share it, and so keep nobody from the first.
class Win32ProcessLocks : public ProcessLocks {
  public:
    [[nodiscard]] std::unique_ptr<HeldLock> tryLock(std::string_view path,
                                                    std::string_view holder) override;
    [[nodiscard]] bool isHeld(std::string_view path) const override;
    [[nodiscard]] std::string holderOf(std::string_view path) const override;
};

} // namespace tarnwick
