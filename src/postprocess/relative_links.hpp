#pragma once

#include "common/known_folders.hpp"
#include "definition/batch_definition.hpp"
#include "platform/code_page.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "platform/tool_paths.hpp"

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
// `temporary` is a path without an extension: a page is rewritten into the file of that name with
// ".tmp" and put in its place in one step; from another volume by way of a file beside the page,
// that name with "-new.tmp". Who rewrites several records at a time gives each a path of its own.
// What an earlier call with that one, which was cut short, has left behind is deleted first.
// Pages name files as the tools do, who wrote them; what becomes of a link is the same everywhere.
// Raises what Files and ToolPaths raise; the page that it met is then as it was, the rest is
// skipped.
[[nodiscard]] RewrittenPages rewriteRecordLinks(const BatchDefinition& definition, Files& files,
                                                KnownFolders& folders, const ToolPaths& paths,
                                                std::string_view sFile, std::string_view temporary);

// The same, by way of "tarnwick.tmp" in the input folder; `sFolder` is not used. An error is
// reported.
void FixRelativePaths(const BatchDefinition& definition, Files& files, Desktop& desktop,
                      std::string_view sFolder, std::string_view sFile);

// The way from the folder of the file `from` to the file `to`, with "\". The folders that both
// begin with fall away, whatever their case; each other one of `from` is a "..\". Between drives
// that leaves `to` whole, with its drive.
[[nodiscard]] std::string relativePath(std::string_view from, std::string_view to,
                                       const CodePage& codePage = systemCodePage());

// `path` with "/" for every "\".
[[nodiscard]] std::string withSlashes(std::string_view path,
                                      const CodePage& codePage = systemCodePage());

// The same two as FixRelativePaths calls them. An error, which only want of memory can be, is
// reported; on purpose the page is then rewritten all the same, with an empty path or with "\".
[[nodiscard]] std::string GetRelativePath(Desktop& desktop, std::string_view sFrom,
                                          std::string_view sTo);
[[nodiscard]] std::string ChangeMySlashes(Desktop& desktop, std::string sPath);

} // namespace tarnwick
