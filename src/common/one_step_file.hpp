#pragma once

#include "platform/files.hpp"

#include <functional>
#include <memory>
#include <string_view>

namespace tarnwick {

// Creates the file new, and removes what lies there before: it is never opened through what
// somebody else may have put in its place, a file of his own or a link. Raises what
// Files::createNew and Files::remove raise.
[[nodiscard]] std::unique_ptr<OutputFile> createAnew(Files& files, std::string_view path);

// Writes `content` as the file `path`, replacing an older one in one step: it is written beside it
// and then put in its place, so that a crash, a full disk or a lost drive leaves the old file
// whole. Where nothing may be made beside an existing file (its folder is not this user's, or the
// longer name is too long), the file is written in its place, and its old content put back if that
// fails.
// Raises what createAnew, OutputFile and Files::moveOver raise; the old file is then as it was
// and nothing is left beside it.
void writeInOneStep(Files& files, std::string_view path, std::string_view content);

// The same of a content that is too large to be held: `write` gives it to the file, piece by piece.
// It is called once. Raises what it raises, too; the old file is then as it was.
void writeInOneStep(Files& files, std::string_view path,
                    const std::function<void(OutputFile& file)>& write);

// Puts the file `from` in the place of `to` in one step, as Files::moveOver does, and from another
// volume too: there it is first copied to `beside`, a path on the volume of `to`. `from` is gone
// afterwards. Raises what moveOver and the copying raise; `to` is then as it was, `from` still
// there and nothing left at `beside`.
void moveInOneStep(Files& files, std::string_view from, std::string_view to,
                   std::string_view beside);

// Deletes the file, if that can be done. For cleaning up after an error, which is the one that the
// user must hear of.
void removeQuietly(Files& files, std::string_view path);

} // namespace tarnwick
