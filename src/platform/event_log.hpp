#pragma once

#include <string_view>

namespace tarnwick {

// Where an administrator looks for what went wrong while nobody was there.
class EventLog {
  public:
    virtual ~EventLog() = default;

    // Enters the text as a warning of this program. Where nothing can be entered, nothing is done:
    // there is nobody left to be told.
    virtual void warn(std::string_view text) = 0;
};

} // namespace tarnwick
