#pragma once

#include "definition/batch_definition.hpp"
#include "platform/code_page.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// Which pages of a record were there, and have been rewritten.
struct RewrittenPages {
    bool html = false;
    bool faq = false;

    bool operator==(const RewrittenPages&) const = default;
};

// Rewrites the HTML and FAQ outputs of one record in place, as far as they exist: links to the
// record's other outputs become relative, and a base line names the page itself instead of its full
// path. `sFile` is the record's file name, of which the base name counts. An output's path is
// looked up in `definition.MPOutputs`, whatever is to be built there; in the input folder when
// `bCfgNamesOutput`.
// A page is rewritten into the file `temporaryName`.tmp in the input folder and put in its place in
// one step; from another volume by way of `temporaryName`-new.tmp beside the page. Who rewrites
// several records at a time gives each a name of its own. What an earlier call of that name, which
// was cut short, has left behind is deleted first.
// Raises what Files raises; the page that it met is then as it was, the rest is skipped.
[[nodiscard]] RewrittenPages rewriteRecordLinks(const BatchDefinition& definition, Files& files,
                                                std::string_view sFile,
                                                std::string_view temporaryName);

// The same, by way of "tarnwick.tmp"; `sFolder` is not used. An error is reported.
void FixRelativePaths(const BatchDefinition& definition, Files& files, Desktop& desktop,
                      std::string_view sFolder, std::string_view sFile);

// The way from the folder of the file `sFrom` to the file `sTo`, with "\". The folders that both
// begin with fall away, whatever their case; each other one of `sFrom` is a "..\". Between drives
// that leaves `sTo` whole, with its drive.
[[nodiscard]] std::string GetRelativePath(std::string_view sFrom, std::string_view sTo,
                                          const CodePage& codePage = systemCodePage());

// `sPath` with "/" for every "\".
[[nodiscard]] std::string ChangeMySlashes(std::string_view sPath,
                                          const CodePage& codePage = systemCodePage());

} // namespace tarnwick
