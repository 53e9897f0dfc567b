#pragma once

#include "common/known_folders.hpp"
#include "definition/batch_definition.hpp"
#include "processing/commands/tool_steps.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// One file that the tools make of every record.
struct ProductKind {
    std::string label;  // "html", "cns": what a person calls it
    std::string folder; // ends in "\"
    std::string suffix; // behind the record's base name
    Tool tool = Tool::MP;

    bool operator==(const ProductKind&) const = default;
};

// What a definition makes of its records, said once for all of them: a hundred thousand commands
// are not built only to learn that nothing is to be done.
class Products {
  public:
    // `job` has resolved paths. Asks `folders` once for each output folder.
    Products(const BatchDefinition& job, KnownFolders& folders);

    // Not known where the configuration file names the outputs.
    [[nodiscard]] bool areKnown() const noexcept { return known_; }

    // In the order in which the tools are told of them.
    [[nodiscard]] const std::vector<ProductKind>& kinds() const noexcept { return kinds_; }

    // The name of that product of the record, without its folder. `kind` is one of kinds().
    [[nodiscard]] std::string nameOf(const ProductKind& kind, std::string_view record) const;

    // The two parts of that name: the stem is the same for all products of the record by this tool,
    // the suffix for all records.
    [[nodiscard]] std::string stemOf(Tool tool, std::string_view record) const;
    [[nodiscard]] std::string suffixOf(const ProductKind& kind) const;

    // The full path.
    [[nodiscard]] std::string pathOf(const ProductKind& kind, std::string_view record) const;

    // Two definitions with the same hash give every record the same commands.
    [[nodiscard]] std::uint64_t commandsHash() const noexcept { return hash_; }

  private:
    bool known_ = true;
    bool cutsTwice_ = false; // MP takes the base name of what CNS made of the base name
    std::string cnsExtension_;
    std::vector<ProductKind> kinds_;
    std::uint64_t hash_ = 0;
};

// The calls of the tools for a record, in their order. `job` has resolved paths.
struct RecordCall {
    ToolStep step;
    ToolCommand command;
};
[[nodiscard]] std::vector<RecordCall> recordCalls(const BatchDefinition& job, KnownFolders& folders,
                                                  std::string_view record);

} // namespace tarnwick
