#include "postprocess/relative_links.hpp"

#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "common/write_behind.hpp"
#include "platform/run_time_error.hpp"
#include "postprocess/page_links.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <ranges>
#include <utility>

namespace tarnwick {
namespace {

// An output of a record; empty where there is none of that type.
struct Output {
    std::string path;
    std::string name; // bare
};

struct Outputs {
    Output html;
    Output faq;
    Output text;
    Output sgml;
    Output xml;
    Output dif;
};

// Of several outputs of one type the last counts. The Build? mark does not.
Output findOutput(const BatchDefinition& definition, KnownFolders& folders,
                  std::string_view baseName, std::string_view type) {
    for (const OutputDefinition& row : std::views::reverse(definition.MPOutputs)) {
        const std::string& folder =
            definition.bCfgNamesOutput ? definition.sInputFolder : row.sOutputFolder;
        if (equalIgnoringCase(row.sFileType, type) && folders.exists(folder)) {
            const std::string name = std::string(baseName).append(row.sExtension);
            return {.path = joinPath(folder, name), .name = name};
        }
    }
    return {};
}

Outputs findOutputs(const BatchDefinition& definition, KnownFolders& folders,
                    std::string_view baseName) {
    const auto output = [&](std::string_view type) {
        return findOutput(definition, folders, baseName, type);
    };
    return {.html = output("html"),
            .faq = output("faq"),
            .text = output("Text"),
            .sgml = output("sgml"),
            .xml = output("xml"),
            .dif = output("dif")};
}

std::string link(std::string_view target) {
    return std::string(linkMarker).append(target).append("\"");
}

// The outputs that a page can link to, in the order in which its lines are searched for them.
using Targets = std::array<const Output*, 5>;

// What a link says in the place of its target's full path.
using RelativeLink = std::function<std::string(std::string_view page, std::string_view target)>;

PageRule pageRule(const Output& page, const Targets& targets, const ToolPaths& paths,
                  const RelativeLink& relativeLink) {
    PageRule rule{.links = {}, .ownPath = paths.toolPath(page.path), .ownName = page.name};
    for (const Output* target : targets) {
        if (!target->path.empty()) {
            rule.links.push_back({.from = link(paths.toolPath(target->path)),
                                  .to = link(relativeLink(page.path, target->path))});
        }
    }
    return rule;
}

void removeLeftover(Files& files, const std::string& path) {
    if (FileExists(files, path)) {
        files.remove(path);
    }
}

// The pages of one record, and the files that they are rewritten by way of.
class RecordPages {
  public:
    RecordPages(Files& files, const ToolPaths& paths, RelativeLink relativeLink, Outputs outputs,
                std::string_view temporary)
        : files_(files),
          paths_(paths),
          relativeLink_(std::move(relativeLink)),
          outputs_(std::move(outputs)),
          temporary_(std::string(temporary) + ".tmp"),
          // Not the same name: the page's folder may be that of `temporary`, reached in another
          // way.
          besideName_(std::string(lastPart(temporary)) + "-new.tmp") {}

    RewrittenPages rewrite() {
        const auto& [html, faq, text, sgml, xml, dif] = outputs_;
        RewrittenPages rewritten;
        rewritten.html = rewritePage(html, {&faq, &text, &sgml, &xml, &dif});
        rewritten.faq = rewritePage(faq, {&html, &text, &sgml, &xml, &dif});
        if (rewritten == RewrittenPages() && FileExists(files_, temporary_)) {
            removeLeftovers();
        }
        return rewritten;
    }

  private:
    // Whether there is such a page.
    bool rewritePage(const Output& page, const Targets& targets) {
        if (page.path.empty() || !FileExists(files_, page.path)) {
            return false;
        }
        try {
            copyRewritten(page.path, pageRule(page, targets, paths_, relativeLink_),
                          createTemporary());
            moveInOneStep(files_, temporary_, page.path, besidePath(page.path));
        } catch (...) {
            removeQuietly(files_, temporary_);
            throw;
        }
        return true;
    }

    void copyRewritten(std::string_view page, const PageRule& rule,
                       std::unique_ptr<OutputFile> copy) const {
        const auto original = files_.openForReading(page);
        WriteBehind behind(*copy);
        rewriteLinks(*original, behind, rule);
        behind.close();
    }

    // We look for leftovers only when creation fails: checking before every page would cost more
    // than rewriting a short one. A hidden leftover goes too: the page would become hidden by it.
    [[nodiscard]] std::unique_ptr<OutputFile> createTemporary() {
        try {
            return files_.createNew(temporary_);
        } catch (const RunTimeError& error) {
            if (!error.is(ErrorNumber::FileAlreadyExists)) {
                throw;
            }
        }
        removeLeftovers();
        return files_.createNew(temporary_);
    }

    // What an earlier call could not clear away. A file beside a page is there only while the
    // temporary file is too, which therefore goes last.
    void removeLeftovers() {
        for (const std::string& page : {outputs_.html.path, outputs_.faq.path}) {
            if (!page.empty()) {
                removeLeftover(files_, besidePath(page));
            }
        }
        files_.remove(temporary_);
    }

    [[nodiscard]] std::string besidePath(std::string_view page) const {
        return joinPath(GetFolderPath(page), besideName_);
    }

    Files& files_;
    const ToolPaths& paths_;
    RelativeLink relativeLink_;
    Outputs outputs_;
    std::string temporary_;
    std::string besideName_;
};

} // namespace

RewrittenPages rewriteRecordLinks(const BatchDefinition& definition, Files& files,
                                  KnownFolders& folders, const ToolPaths& paths,
                                  std::string_view sFile, std::string_view temporary) {
    const RelativeLink relativeLink = [](std::string_view page, std::string_view target) {
        return withSlashes(relativePath(page, target));
    };
    return RecordPages(files, paths, relativeLink,
                       findOutputs(definition, folders, GetBaseName(sFile)), temporary)
        .rewrite();
}

void FixRelativePaths(const BatchDefinition& definition, Files& files, Desktop& desktop,
                      std::string_view /*sFolder*/, std::string_view sFile) {
    trap(desktop, "frmMain", "Private Sub FixRelativePaths()", [&] {
        KnownFolders folders(files);
        const WindowsToolPaths paths;
        const RelativeLink relativeLink = [&desktop](std::string_view page,
                                                     std::string_view target) {
            return ChangeMySlashes(desktop, GetRelativePath(desktop, page, target));
        };
        RecordPages(files, paths, relativeLink,
                    findOutputs(definition, folders, GetBaseName(sFile)),
                    joinPath(definition.sInputFolder, "tarnwick"))
            .rewrite();
    });
}

std::string GetRelativePath(Desktop& desktop, std::string_view sFrom, std::string_view sTo) {
    std::string path;
    trap(desktop, "frmMain", "Private Function GetRelativePath",
         [&] { path = relativePath(sFrom, sTo); });
    return path;
}

std::string ChangeMySlashes(Desktop& desktop, std::string sPath) {
    trap(desktop, "frmMain", "Private Function ChangeMySlashes",
         [&] { sPath = withSlashes(sPath); });
    return sPath;
}

std::string relativePath(std::string_view from, std::string_view to, const CodePage& codePage) {
    const auto nextBackslash = [&] { return codePage.findFirstOf(from, "\\"); };
    for (auto p = nextBackslash(); p != std::string_view::npos; p = nextBackslash()) {
        // Not always `p`: the small and the capital form of a letter may differ in length.
        const auto q = codePage.findFirstOf(to, "\\");
        if (q == std::string_view::npos ||
            !equalIgnoringCase(from.substr(0, p), to.substr(0, q), codePage)) {
            break;
        }
        from.remove_prefix(p + 1);
        to.remove_prefix(q + 1);
    }
    std::string path;
    for (auto p = nextBackslash(); p != std::string_view::npos; p = nextBackslash()) {
        path += "..\\";
        from.remove_prefix(p + 1);
    }
    return path.append(to);
}

std::string withSlashes(std::string_view path, const CodePage& codePage) {
    std::string result;
    for (auto p = codePage.findFirstOf(path, "\\"); p != std::string_view::npos;
         p = codePage.findFirstOf(path, "\\")) {
        result.append(path.substr(0, p)).append("/");
        path.remove_prefix(p + 1);
    }
    return result.append(path);
}

} // namespace tarnwick
