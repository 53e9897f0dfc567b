#include "postprocess/relative_links.hpp"

#include "common/known_folders.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "platform/run_time_error.hpp"
#include "postprocess/page_links.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <ranges>

namespace tarnwick {
namespace {

constexpr std::string_view temporaryName = "tarnwick.tmp";
// For a page on another volume than the input folder. Not the same name: the two folders may be
// one, reached in two ways.
constexpr std::string_view besideName = "tarnwick-new.tmp";

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

Outputs findOutputs(const BatchDefinition& definition, const Files& files,
                    std::string_view baseName) {
    KnownFolders folders(files);
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

std::string besidePath(std::string_view page) {
    return joinPath(GetFolderPath(page), besideName);
}

std::string link(std::string_view target) {
    return std::string(linkMarker).append(target).append("\"");
}

// The outputs that a page can link to, in the order in which its lines are searched for them.
using Targets = std::array<const Output*, 5>;

PageRule pageRule(Desktop& desktop, const Output& page, const Targets& targets) {
    PageRule rule{.links = {}, .ownPath = page.path, .ownName = page.name};
    for (const Output* target : targets) {
        if (!target->path.empty()) {
            const std::string relative = GetRelativePath(desktop, page.path, target->path);
            rule.links.push_back(
                {.from = link(target->path), .to = link(ChangeMySlashes(desktop, relative))});
        }
    }
    return rule;
}

void removeLeftover(Files& files, const std::string& path) {
    if (FileExists(files, path)) {
        files.remove(path);
    }
}

// What an earlier call could not clear away. A file beside a page is there only while the temporary
// file is too, which therefore goes last.
void removeLeftovers(Files& files, const Outputs& outputs, const std::string& temporary) {
    for (const std::string& page : {outputs.html.path, outputs.faq.path}) {
        if (!page.empty()) {
            removeLeftover(files, besidePath(page));
        }
    }
    files.remove(temporary);
}

// Leftovers are looked for where one is in the way: to ask for them before every page takes longer
// than to rewrite a short one's lines. A hidden one goes too: the page would become hidden by it.
std::unique_ptr<OutputFile> createTemporary(Files& files, const Outputs& outputs,
                                            const std::string& temporary) {
    try {
        return files.createNew(temporary);
    } catch (const RunTimeError& error) {
        if (!error.is(ErrorNumber::FileAlreadyExists)) {
            throw;
        }
    }
    removeLeftovers(files, outputs, temporary);
    return files.createNew(temporary);
}

void copyRewritten(Files& files, std::string_view page, const PageRule& rule,
                   std::unique_ptr<OutputFile> copy) {
    const auto original = files.openForReading(page);
    rewriteLinks(*original, *copy, rule);
    copy->close();
}

// Whether there is such a page.
bool rewritePage(const LinkServices& services, const Outputs& outputs, const std::string& temporary,
                 const Output& page, const Targets& targets) {
    const auto& [files, desktop] = services;
    if (page.path.empty() || !FileExists(files, page.path)) {
        return false;
    }
    try {
        copyRewritten(files, page.path, pageRule(desktop, page, targets),
                      createTemporary(files, outputs, temporary));
        moveInOneStep(files, temporary, page.path, besidePath(page.path));
    } catch (...) {
        removeQuietly(files, temporary);
        throw;
    }
    return true;
}

} // namespace

void FixRelativePaths(const BatchDefinition& definition, const LinkServices& services,
                      std::string_view /*sFolder*/, std::string_view sFile) {
    trap(services.desktop, "frmMain", "Private Sub FixRelativePaths()", [&] {
        const std::string temporary = joinPath(definition.sInputFolder, temporaryName);
        const auto outputs = findOutputs(definition, services.files, GetBaseName(sFile));
        const auto& [html, faq, text, sgml, xml, dif] = outputs;
        const auto rewrite = [&](const Output& page, const Targets& targets) {
            return rewritePage(services, outputs, temporary, page, targets);
        };
        const bool htmlRewritten = rewrite(html, {&faq, &text, &sgml, &xml, &dif});
        const bool faqRewritten = rewrite(faq, {&html, &text, &sgml, &xml, &dif});
        if (!htmlRewritten && !faqRewritten && FileExists(services.files, temporary)) {
            removeLeftovers(services.files, outputs, temporary);
        }
    });
}

std::string GetRelativePath(Desktop& desktop, std::string_view sFrom, std::string_view sTo) {
    std::string result;
    trap(desktop, "frmMain", "Private Function GetRelativePath", [&] {
        for (auto p = sFrom.find('\\'); p != std::string_view::npos; p = sFrom.find('\\')) {
            if (!equalIgnoringCase(sFrom.substr(0, p + 1), sTo.substr(0, p + 1))) {
                break;
            }
            sFrom.remove_prefix(p + 1);
            sTo.remove_prefix(p + 1);
        }
        std::string path;
        for (auto levels = std::ranges::count(sFrom, '\\'); levels > 0; --levels) {
            path += "..\\";
        }
        result = path.append(sTo);
    });
    return result;
}

std::string ChangeMySlashes(Desktop& desktop, std::string_view sPath) {
    std::string result(sPath);
    trap(desktop, "frmMain", "Private Function ChangeMySlashes",
         [&] { std::ranges::replace(result, '\\', '/'); });
    return result;
}

} // namespace tarnwick
