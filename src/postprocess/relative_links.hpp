#pragma once

#include "definition/batch_definition.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

struct LinkServices {
    Files& files;
    Desktop& desktop;
};

// Rewrites the HTML and FAQ outputs of one record in place, as far as they exist: links to the
// record's other outputs become relative, and a base line names the page itself instead of its full
// path. `sFile` is the record's file name, of which the base name counts; `sFolder` is not used.
// An output's path is looked up in `definition.MPOutputs`, whatever is to be built there; in the
// input folder when `bCfgNamesOutput`.
// A page is rewritten into "tarnwick.tmp" in the input folder and put in its place in one step. An
// error is reported and skips the rest; the page that it met is then as it was. What an earlier
// call that was cut short has left behind is deleted first.
void FixRelativePaths(const BatchDefinition& definition, const LinkServices& services,
                      std::string_view sFolder, std::string_view sFile);

// The way from the folder of the file `sFrom` to the file `sTo`, with "\". The folders that both
// begin with fall away, whatever their case; each other one of `sFrom` is a "..\". Between drives
// that leaves `sTo` whole, with its drive. An error is reported and gives an empty text.
[[nodiscard]] std::string GetRelativePath(Desktop& desktop, std::string_view sFrom,
                                          std::string_view sTo);

// `sPath` with "/" for every "\". An error is reported and gives `sPath`.
[[nodiscard]] std::string ChangeMySlashes(Desktop& desktop, std::string_view sPath);

} // namespace tarnwick
