#pragma once

#include <functional>
#include <string_view>

namespace tarnwick {

// Takes a report piece by piece, in their order: of a hundred thousand records it is too large to
// be held as one text beside the value that it tells. May raise what the writing of a file raises.
using ReportSink = std::function<void(std::string_view piece)>;

} // namespace tarnwick
