#pragma once

#include "definition/batch_definition.hpp"

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// Makes definitions with any text in any field, the same ones for the same seed. A test that needs
// fields of another kind derives from it.
class DefinitionGenerator {
  public:
    explicit DefinitionGenerator(unsigned seed) : random_(seed) {}

    BatchDefinition definition() {
        BatchDefinition result;
        MyDefaultSettings(result);
        for (std::string* const field :
             {&result.sAppFolder, &result.sTempFolder, &result.sMPExecutable,
              &result.sCNSExecutable, &result.sINIFile, &result.sCommandLineLogFile,
              &result.sLanguage, &result.sInputFolder, &result.sInputExtensions,
              &result.sCNSOutputFolder, &result.sCNSOutputExtension, &result.sAliasesFile,
              &result.sConfigFile}) {
            *field = text();
        }
        for (bool* const flag :
             {&result.bSettingsChanged, &result.bCommandLineLogging, &result.bConvertHyperlinks,
              &result.bCfgNamesInput, &result.bCfgNamesOutput}) {
            *flag = coin();
        }
        result.iFixDoc = static_cast<std::int16_t>(below(2));
        for (int* const box : {&result.iProcessMP, &result.iProcessCNS, &result.bUseAliases,
                               &result.bUseConfigFile}) {
            *box = static_cast<int>(below(2));
        }
        generateRows(result.MPOutputs);
        generateRows(result.CNSOutputs);
        return result;
    }

    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool coin() { return below(2) == 1; }
    // Up to eleven of the characters.
    std::string textOf(std::string_view characters) {
        std::string result;
        for (std::size_t length = below(12); length > 0; --length) {
            result += characters[below(characters.size())];
        }
        return result;
    }
    // No line ends and no control characters.
    std::string text() {
        std::string characters;
        for (int code = ' '; code < 256; ++code) {
            characters += static_cast<char>(code);
        }
        return textOf(characters);
    }
    std::string oneOf(const std::vector<std::string>& choices) {
        return choices[below(choices.size())];
    }

  private:
    void generateRows(std::span<OutputDefinition> rows) {
        for (OutputDefinition& row : rows) {
            row.bBuild = coin();
            row.sExtension = text();
            row.sOutputFolder = text();
        }
    }

    std::mt19937 random_;
};

} // namespace tarnwick
