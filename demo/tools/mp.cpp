#include "checks.hpp"
#include "pages.hpp"
#include "products.hpp"
#include "record_reader.hpp"
#include "tool.hpp"
#include "tool_failure.hpp"
#include "tool_files.hpp"
#include "writers.hpp"

#include <array>
#include <vector>

namespace demo {
namespace {

constexpr auto options = std::to_array<OptionRule>({
    {.name = "-c"},
    {.name = "-l", .required = true},
    {.name = "-e"},
    {.name = "-t"},
    {.name = "-h"},
    {.name = "-f"},
    {.name = "-s"},
    {.name = "-x"},
    {.name = "-d"},
    {.name = "-fixdoc", .takesValue = false},
});
constexpr std::string_view usage =
    "mp [-c configuration] -l language [-e errors] [-t text] [-h html] [-f faq] [-s sgml] [-x xml] "
    "[-d dif] [-fixdoc] input";

using Paths = std::map<Product, std::string>;

// What the page `self` links to. The error report is for the record's author, not for its readers.
std::vector<Link> linksFor(Product self, const Paths& paths) {
    constexpr auto captions = std::to_array<std::pair<Product, std::string_view>>({
        {Product::Html, "HTML"},
        {Product::Faq, "FAQ"},
        {Product::Text, "Text"},
        {Product::Sgml, "SGML"},
        {Product::Xml, "XML"},
        {Product::Dif, "DIF"},
    });
    std::vector<Link> links;
    for (const auto& [product, caption] : captions) {
        const auto found = paths.find(product);
        if (product != self && found != paths.end()) {
            links.push_back({caption, found->second});
        }
    }
    return links;
}

std::vector<std::string> readInput(const std::string& path, const Paths& paths, Language language) {
    try {
        return readLines(path, language);
    } catch (const ToolFailure& failure) {
        if (const auto report = paths.find(Product::Error); report != paths.end()) {
            Findings findings(language);
            findings.error(std::string(failure.what()));
            writeFile(report->second, findings.report(path), language);
        }
        throw;
    }
}

struct Run {
    std::string input;
    Paths paths;
    Record record;
    Findings findings;
    bool cleanUp = false;
    Language language = Language::English;
};

std::string contentOf(Product product, const Run& run) {
    const auto& path = run.paths.at(product);
    switch (product) {
    case Product::Text:
        return textOutput(run.record, run.cleanUp);
    case Product::Html:
        return htmlPage(run.record, path, linksFor(product, run.paths), run.language);
    case Product::Faq:
        return faqPage(run.record, path, linksFor(product, run.paths), run.language);
    case Product::Sgml:
        return sgmlOutput(run.record);
    case Product::Xml:
        return xmlOutput(run.record);
    case Product::Dif:
        return difOutput(run.record);
    default:
        return run.findings.report(run.input);
    }
}

void work(const Arguments& arguments, Language language) {
    const auto configuration = configurationOf(arguments, language);
    Run run{.input = inputPath(arguments, configuration),
            .paths = outputPaths(mpProducts(), arguments, configuration),
            .record = {},
            .findings = Findings(language),
            .cleanUp = arguments.find("-fixdoc") != nullptr,
            .language = language};
    run.record = readRecord(readInput(run.input, run.paths, language), run.findings);
    check(run.record, run.findings);
    std::vector<std::function<void()>> steps;
    steps.reserve(run.paths.size());
    for (const auto& [product, path] : run.paths) {
        steps.emplace_back([&] { writeFile(path, contentOf(product, run), language); });
    }
    runAll(steps);
}

} // namespace

int runMp(std::span<const std::string> arguments, std::ostream& errors) {
    return runTool({.name = "mp", .usage = usage, .options = options}, arguments, errors, work);
}

} // namespace demo
