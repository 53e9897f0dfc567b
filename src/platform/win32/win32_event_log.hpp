#pragma once

#include "platform/event_log.hpp"

namespace tarnwick {

// The system's log of applications, under the source "Tarnwick". An installation for everybody
// registers that source with this program's file, whose message table has the one message that the
// texts stand in; where it is not registered, the log shows them behind a remark of its own.
class Win32EventLog final : public EventLog {
  public:
    void warn(std::string_view text) override;
};

} // namespace tarnwick
