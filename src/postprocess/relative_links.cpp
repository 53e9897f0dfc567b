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

PageRule pageRule(const Output& page, const Targets& targets, const ToolPaths& paths) {
    PageRule rule{.links = {}, .ownPath = paths.toolPath(page.path), .ownName = page.name};
    for (const Output* target : targets) {
        if (!target->path.empty()) {
            rule.links.push_back(
                {.from = link(paths.toolPath(target->path)),
                 .to = link(ChangeMySlashes(GetRelativePath(page.path, target->path)))});
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
    RecordPages(Files& files, const ToolPaths& paths, Outputs outputs, std::string_view temporary)
        : files_(files),
          paths_(paths),
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
            copyRewritten(page.path, pageRule(page, targets, paths_), createTemporary());
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
    Outputs outputs_;
    std::string temporary_;
    std::string besideName_;
};

} // namespace

RewrittenPages rewriteRecordLinks(const BatchDefinition& definition, Files& files,
                                  KnownFolders& folders, const ToolPaths& paths,
                                  std::string_view sFile, std::string_view temporary) {
    return RecordPages(files, paths, findOutputs(definition, folders, GetBaseName(sFile)),
                       temporary)
        .rewrite();
}

void FixRelativePaths(const BatchDefinition& definition, Files& files, Desktop& desktop,
                      std::string_view /*sFolder*/, std::string_view sFile) {
    trap(desktop, "frmMain", "Private Sub FixRelativePaths()", [&] {
        KnownFolders folders(files);
        static_cast<void>(rewriteRecordLinks(definition, files, folders, WindowsToolPaths(), sFile,
                                             joinPath(definition.sInputFolder, "tarnwick")));
    });
}

std::string GetRelativePath(std::string_view sFrom, std::string_view sTo,
                            const CodePage& codePage) {
    const auto nextBackslash = [&] { return codePage.findFirstOf(sFrom, "\\"); };
    for (auto p = nextBackslash(); p != std::string_view::npos; p = nextBackslash()) {
        const auto q = codePage.findFirstOf(sTo, "\\"); // elsewhere, where letters differ in length
        if (q == std::string_view::npos ||
            !equalIgnoringCase(sFrom.substr(0, p), sTo.substr(0, q), codePage)) {
            break;
        }
        sFrom.remove_prefix(p + 1);
        sTo.remove_prefix(q + 1);
    }
    std::string path;
    for (auto p = nextBackslash(); p != std::string_view::npos; p = nextBackslash()) {
        path += "..\\";
        sFrom.remove_prefix(p + 1);
    }
    return path.append(sTo);
}

std::string ChangeMySlashes(std::string_view sPath, const CodePage& codePage) {
    std::string result;
    for (auto p = codePage.findFirstOf(sPath, "\\"); p != std::string_view::npos;
         p = codePage.findFirstOf(sPath, "\\")) {
        result.append(sPath.substr(0, p)).append("/");
        sPath.remove_prefix(p + 1);
    }
    return result.append(sPath);
}

} // namespace tarnwick
