#include "products.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "platform/case_folding.hpp"
#include "tool_failure.hpp"
#include "tool_files.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace demo {
namespace {

constexpr auto mp = std::to_array<ProductRule>({
    {.product = Product::Error, .option = "-e", .key = "error", .extension = ".err"},
    {.product = Product::Text, .option = "-t", .key = "text", .extension = ".txt"},
    {.product = Product::Html, .option = "-h", .key = "html", .extension = ".html"},
    {.product = Product::Faq, .option = "-f", .key = "faq", .extension = "_faq.htm"},
    {.product = Product::Sgml, .option = "-s", .key = "sgml", .extension = ".sgml"},
    {.product = Product::Xml, .option = "-x", .key = "xml", .extension = ".xml"},
    {.product = Product::Dif, .option = "-d", .key = "dif", .extension = ".dif"},
});
constexpr auto cns = std::to_array<ProductRule>({
    {.product = Product::Cns, .option = "-o", .key = "cns", .extension = ".cns"},
    {.product = Product::Info, .option = "-i", .key = "info", .extension = ".info"},
    {.product = Product::Leftovers, .option = "-e", .key = "leftovers", .extension = ".lft"},
});

const ProductRule* findProduct(std::span<const ProductRule> rules, std::string_view key) {
    const auto found = std::ranges::find_if(
        rules, [key](const auto& rule) { return tarnwick::equalIgnoringCase(rule.key, key); });
    return found == rules.end() ? nullptr : &*found;
}

// The words of a line; what stands in double quotation marks is one word. False when a mark has no
// partner.
bool split(std::string_view line, std::vector<std::string>& words) {
    for (line = tarnwick::trim(line); !line.empty(); line = tarnwick::trim(line)) {
        const bool isQuoted = line.starts_with('"');
        line.remove_prefix(isQuoted ? 1 : 0);
        const auto end = line.find(isQuoted ? '"' : ' ');
        if (isQuoted && end == std::string_view::npos) {
            return false;
        }
        words.emplace_back(line.substr(0, end));
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    return true;
}

enum class Section { None, Input, Output };

// Takes one entry into the configuration; false when it is none.
bool takeEntry(Configuration& configuration, Section section, std::string_view line) {
    std::vector<std::string> words;
    if (!split(line, words) || words.size() < 2) {
        return false;
    }
    if (section == Section::Input) {
        configuration.inputFolder = words[1];
        return words.size() == 2 && tarnwick::equalIgnoringCase(words[0], "folder");
    }
    const auto* product = findProduct(mp, words[0]);
    product = product == nullptr ? findProduct(cns, words[0]) : product;
    if (section == Section::None || product == nullptr || words.size() > 3) {
        return false;
    }
    configuration.outputs[product->product] = {
        .folder = words[1],
        .extension = words.size() == 3 ? words[2] : std::string(product->extension)};
    return true;
}

} // namespace

std::span<const ProductRule> mpProducts() {
    return mp;
}

std::span<const ProductRule> cnsProducts() {
    return cns;
}

Configuration configurationOf(const Arguments& arguments, Language language) {
    Configuration result;
    const auto* const path = arguments.find("-c");
    if (path == nullptr) {
        return result;
    }
    Section section = Section::None;
    std::size_t number = 0;
    for (const auto& whole : readLines(*path, language)) {
        ++number;
        const auto line = tarnwick::trim(whole);
        if (tarnwick::equalIgnoringCase(line, "input")) {
            section = Section::Input;
        } else if (tarnwick::equalIgnoringCase(line, "output")) {
            section = Section::Output;
        } else if (!line.empty() && !line.starts_with('#') && !takeEntry(result, section, line)) {
            throw ToolFailure(Status::BadArguments, say(language, Message::BadConfigurationLine,
                                                        {*path, std::to_string(number)}));
        }
    }
    return result;
}

std::string inputPath(const Arguments& arguments, const Configuration& configuration) {
    return configuration.inputFolder && isBareName(arguments.input)
               ? inFolder(*configuration.inputFolder, arguments.input)
               : arguments.input;
}

std::map<Product, std::string> outputPaths(std::span<const ProductRule> products,
                                           const Arguments& arguments,
                                           const Configuration& configuration) {
    std::map<Product, std::string> result;
    for (const auto& rule : products) {
        const auto configured = configuration.outputs.find(rule.product);
        if (const auto* const path = arguments.find(rule.option)) {
            result[rule.product] = *path;
        } else if (configured != configuration.outputs.end()) {
            result[rule.product] =
                inFolder(configured->second.folder,
                         tarnwick::GetBaseName(arguments.input) + configured->second.extension);
        }
    }
    return result;
}

} // namespace demo
