#include "common/known_folders.hpp"
#include "fuzz/reference/plain_tool_lines.hpp"
#include "runner/argument_list.hpp"
#include "runner/products.hpp"
#include "support/definition_generator.hpp"
#include "support/hosted_world.hpp"

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;

class SamePaths final : public ToolPaths {
  public:
    [[nodiscard]] std::string toolPath(std::string_view path) const override {
        return std::string(path);
    }
    [[nodiscard]] char separator() const noexcept override { return '\\'; }
};

const SamePaths samePaths;

// Definitions of what can stand in a path, and a little of what cannot.
class PathDefinitionGenerator : public DefinitionGenerator {
  public:
    using DefinitionGenerator::DefinitionGenerator;

    BatchDefinition definition() {
        BatchDefinition result = DefinitionGenerator::definition();
        result.sInputFolder = path();
        result.sMPExecutable = path() + ".exe";
        result.sCNSExecutable = path() + ".exe";
        result.sConfigFile = path();
        result.sAliasesFile = path();
        result.sCNSOutputFolder = path();
        result.sCNSOutputExtension = textOf(".cx_ ");
        result.sLanguage = oneOf({"", "English", "French", "fr ca", "%LANG%", "a&b"});
        for (OutputDefinition& row : result.MPOutputs) {
            row.sOutputFolder = R"(C:\out)";
            row.sExtension = textOf(".x%^&! _\\\"");
        }
        for (OutputDefinition& row : result.CNSOutputs) {
            row.sOutputFolder = R"(C:\out)";
            row.sExtension = textOf(".x%^&! _");
        }
        return result;
    }

    std::string record() { return "r" + textOf("ab.%^&! ()\xE9") + "x"; }

  private:
    std::string path() { return R"(C:\)" + textOf("ab %^&!\\"); }
};

TEST(ArgumentList, Is_what_a_program_finds_that_is_started_by_the_line_of_a_batch) {
    HostedWorld world;
    world.makeFolder(R"(C:\out)");
    PathDefinitionGenerator generator(20261122);
    int compared = 0;
    for (int round = 0; round < 1000; ++round) {
        const BatchDefinition definition = generator.definition();
        const std::string record = generator.record();
        KnownFolders folders(world.files());
        const KnownToolPaths paths(samePaths);
        for (const auto& [step, command] : recordCalls(definition, folders, record)) {
            if (!staysArgumentList(command)) {
                continue; // which is refused before anything is started
            }
            ++compared;
            std::vector<std::string> expected =
                reference::argumentsOf(std::string_view(batchLine(command)).substr(5));
            expected.erase(expected.begin()); // the program
            EXPECT_EQ(argumentList(command, paths), expected) << batchLine(command);
        }
    }
    EXPECT_GT(compared, 300); // the others held what no path can hold
}

TEST(ArgumentList, Keeps_what_an_interpreter_would_change) {
    const KnownToolPaths paths(samePaths);
    const ToolCommand command{.tool = R"(C:\mp.exe)",
                              .arguments = {{ToolArgument::Kind::Word, "-l"},
                                            {ToolArgument::Kind::Word, "fr  ca"},
                                            {ToolArgument::Kind::Input, R"(C:\in\a%OS%^&!.met)"}}};
    EXPECT_THAT(argumentList(command, paths),
                ElementsAre("-l", "fr", "ca", R"(C:\in\a%OS%^&!.met)"));
}

TEST(ArgumentList, Is_none_where_a_quotation_mark_would_end_a_text) {
    const auto stays = [](ToolArgument::Kind kind, const std::string& text) {
        return staysArgumentList({.tool = "mp.exe", .arguments = {{kind, text}}});
    };
    EXPECT_TRUE(stays(ToolArgument::Kind::Output, R"(C:\a b.html)"));
    EXPECT_FALSE(stays(ToolArgument::Kind::Output, R"(C:\a" -c "b.html)"));
    EXPECT_FALSE(stays(ToolArgument::Kind::Word, R"(fr" -x)"));
    EXPECT_FALSE(stays(ToolArgument::Kind::Output, R"(C:\out\)"));
    EXPECT_TRUE(stays(ToolArgument::Kind::Word, R"(fr\)"));
}

// The same files under the same names as the commands say, whatever dots and blanks a name has.
TEST(Products, Are_the_outputs_of_the_commands) {
    HostedWorld world;
    world.makeFolder(R"(C:\out)");
    PathDefinitionGenerator generator(42);
    std::size_t compared = 0;
    for (int round = 0; round < 1000; ++round) {
        BatchDefinition definition = generator.definition();
        definition.bCfgNamesOutput = false;
        const std::string record = generator.record();
        KnownFolders folders(world.files());
        const Products products(definition, folders);
        std::vector<std::string> outputs;
        for (const auto& [step, command] : recordCalls(definition, folders, record)) {
            for (const ToolArgument& argument : command.arguments) {
                if (argument.kind == ToolArgument::Kind::Output) {
                    outputs.push_back(argument.text);
                }
            }
        }
        std::vector<std::string> paths;
        for (const ProductKind& kind : products.kinds()) {
            paths.push_back(products.pathOf(kind, record));
        }
        EXPECT_EQ(paths, outputs) << record << " " << definition.sCNSOutputExtension;
        compared += outputs.size();
    }
    EXPECT_GT(compared, 2000U);
}

TEST(Products, Tell_two_definitions_apart_by_what_the_tools_get) {
    HostedWorld world;
    KnownFolders folders(world.files());
    BatchDefinition definition;
    MyDefaultSettings(definition);
    const auto hash = [&] { return Products(definition, folders).commandsHash(); };
    const auto before = hash();
    definition.sInputExtensions = "*.txt"; // only which records there are
    definition.bSettingsChanged = true;
    EXPECT_EQ(hash(), before);
    definition.sLanguage = "French";
    EXPECT_NE(hash(), before);
    definition.sLanguage = "English";
    definition.bConvertHyperlinks = !definition.bConvertHyperlinks;
    EXPECT_NE(hash(), before);
}

} // namespace
} // namespace tarnwick
