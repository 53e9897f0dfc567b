#include "common/text.hpp"
#include "products.hpp"
#include "repair.hpp"
#include "tool.hpp"
#include "tool_files.hpp"

#include <array>
#include <ostream>
#include <vector>

namespace demo {
namespace {

constexpr auto options = std::to_array<OptionRule>({
    {.name = "-c"},
    {.name = "-l", .required = true},
    {.name = "-a"},
    {.name = "-v", .takesValue = false},
    {.name = "-i"},
    {.name = "-e"},
    {.name = "-o", .required = true},
});
constexpr std::string_view usage = "cns [-c configuration] -l language [-a aliases] [-v] [-i info] "
                                   "[-e leftovers] -o output input";

// What was done: every repair when it is to be verbose, and in any case the counts.
std::string infoOutput(const Repaired& repaired, const std::string& input, bool verbose,
                       Language language) {
    std::string out = say(language, Message::RepairsHeading, {input});
    out += tarnwick::lineEnd;
    for (const auto& sentence : repaired.repairs) {
        out.append(verbose ? sentence : "").append(verbose ? tarnwick::lineEnd : "");
    }
    out += say(language, Message::RepairsSummary,
               {std::to_string(repaired.elements), std::to_string(repaired.repairs.size()),
                std::to_string(repaired.leftovers.size())});
    return out.append(tarnwick::lineEnd);
}

std::string leftoversOutput(const Repaired& repaired, const std::string& input, Language language) {
    std::string out = say(language, Message::LeftoversHeading, {input});
    out += tarnwick::lineEnd;
    for (const auto& [line, text] : repaired.leftovers) {
        out += say(language, Message::LeftoverLine, {std::to_string(line), text});
        out += tarnwick::lineEnd;
    }
    out += say(language, Message::LeftoversSummary, {std::to_string(repaired.leftovers.size())});
    return out.append(tarnwick::lineEnd);
}

void work(const Arguments& arguments, Language language, std::ostream& out) {
    const auto configuration = configurationOf(arguments, language);
    const auto input = inputPath(arguments, configuration);
    const auto* const aliasesFile = arguments.find("-a");
    const auto aliases = aliasesFile == nullptr ? Aliases() : Aliases(*aliasesFile, language);
    // Read to its end first: the output may replace the input.
    const auto repaired = repair(readLines(input, language), aliases, language);
    const bool verbose = arguments.find("-v") != nullptr;
    const auto paths = outputPaths(cnsProducts(), arguments, configuration);
    if (verbose && !paths.contains(Product::Info)) {
        out << infoOutput(repaired, input, verbose, language);
    }
    std::vector<std::function<void()>> steps;
    steps.reserve(paths.size());
    for (const auto& [product, path] : paths) {
        steps.emplace_back([&] {
            const auto content = product == Product::Cns ? recordText(repaired.record)
                                 : product == Product::Info
                                     ? infoOutput(repaired, input, verbose, language)
                                     : leftoversOutput(repaired, input, language);
            writeFile(path, content, language);
        });
    }
    runAll(steps);
}

} // namespace

int runCns(std::span<const std::string> arguments, std::ostream& out, std::ostream& errors) {
    return runTool(
        {.name = "cns", .usage = usage, .options = options}, arguments, errors,
        [&out](const Arguments& taken, Language language) { work(taken, language, out); });
}

} // namespace demo
