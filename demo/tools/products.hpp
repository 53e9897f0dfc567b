#pragma once

#include "arguments.hpp"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace demo {

// The files that the tools write.
enum class Product { Error, Text, Html, Faq, Sgml, Xml, Dif, Cns, Info, Leftovers };

struct ProductRule {
    Product product;
    std::string_view option;    // on the command line of its tool
    std::string_view key;       // in a configuration file
    std::string_view extension; // that follows the input's base name, if none is configured
};

[[nodiscard]] std::span<const ProductRule> mpProducts();
[[nodiscard]] std::span<const ProductRule> cnsProducts();

// What a configuration file says.
struct Configuration {
    struct Output {
        std::string folder;
        std::string extension;
    };
    std::optional<std::string> inputFolder;
    std::map<Product, Output> outputs;
};

// Reads the configuration file named by "-c"; without one, nothing is configured. One file serves
// both tools. Raises ToolFailure: Unreadable, BadArguments for a line that is no entry.
[[nodiscard]] Configuration configurationOf(const Arguments& arguments, Language language);

// The path of the input: a bare file name lies in the configured input folder.
[[nodiscard]] std::string inputPath(const Arguments& arguments, const Configuration& configuration);

// The path of each product to write: what the command line names, and else what is configured.
[[nodiscard]] std::map<Product, std::string> outputPaths(std::span<const ProductRule> products,
                                                         const Arguments& arguments,
                                                         const Configuration& configuration);

} // namespace demo
