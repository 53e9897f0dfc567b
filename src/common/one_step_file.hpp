#pragma once

#include "platform/files.hpp"

#include <string_view>

namespace tarnwick {

// Writes `content` as the file `path`, replacing an older one in one step: it is written beside it
// and then put in its place, so that a crash, a full disk or a lost drive leaves the old file
// whole. Raises what Files::create, OutputFile and Files::moveOver raise; the old file is then as
// it was and nothing is left beside it.
void writeInOneStep(Files& files, std::string_view path, std::string_view content);

// Deletes the file, if that can be done. For cleaning up after an error, which is the one that the
// user must hear of.
void removeQuietly(Files& files, std::string_view path);

} // namespace tarnwick
