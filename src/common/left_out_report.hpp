#pragma once

#include "platform/desktop.hpp"
#include "platform/left_out.hpp"

#include <string_view>

namespace tarnwick {

// Tells the user what a listing of `folder` has left out, as "file" or "folder"; nothing when it
// has left out nothing.
void tellLeftOut(Desktop& desktop, const LeftOut& leftOut, std::string_view kind,
                 std::string_view folder);

// The same for paths that the program begins with (see definition/start_up.hpp).
void tellNamelessPaths(Desktop& desktop, const LeftOut& leftOut);

// Tells the user in one message which records and which products no command was written for (see
// processing/commands/record_names.hpp).
void tellRefused(Desktop& desktop, const LeftOut& records, const LeftOut& products);

} // namespace tarnwick
