#include "common/known_folders.hpp"
#include "common/line_reader.hpp"
#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "definition/ini_file.hpp"
#include "definition/output_types.hpp"
#include "definition/resolved_paths.hpp"
#include "platform/run_time_error.hpp"

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view gridKeyPrefix = "GRID_";

// No path and no command line of the system can be as long; a longer line is no entry but damage,
// and its value would only make every later message and command unusable.
constexpr std::size_t longestEntry = std::size_t{64} * 1024;

bool isTrue(std::string_view value) {
    return equalIgnoringCase(trim(value), "TRUE");
}

// What editors put in front of a text to say that it is UTF-8.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Takes the lines of one file into a definition. The extensions are collected apart and reach the
// rows at the end of the file.
class IniReader {
  public:
    IniReader(BatchDefinition& definition, const Files& files)
        : definition_(definition), files_(files), folders_(files) {}

    void readLine(std::string_view line) {
        if (!std::exchange(begun_, true) && line.starts_with(byteOrderMark)) {
            line.remove_prefix(byteOrderMark.size());
        }
        const bool known = readEntry(line);
        knowsEntry_ = knowsEntry_ || known;
        holdsText_ = holdsText_ || !trim(line).empty();
    }

    // Whether the file holds something, but nothing that is ours.
    [[nodiscard]] bool isNoDefinition() const noexcept { return holdsText_ && !knowsEntry_; }

    [[nodiscard]] std::vector<PassedOverEntry> passedOver() && { return std::move(passedOver_); }

    void finish() {
        copyExtensions(mpExtensions_, definition_.MPOutputs);
        copyExtensions(cnsExtensions_, definition_.CNSOutputs);
    }

  private:
    template <std::size_t rows>
    struct Extensions {
        explicit Extensions(const std::array<OutputType, rows>& outputTypes) : types(outputTypes) {
            for (std::size_t row = 0; row < rows; ++row) {
                texts.at(row) = types.at(row).defaultExtension;
            }
        }
        const std::array<OutputType, rows>& types;
        std::array<std::string, rows> texts;
    };

    // Whether it is an entry that is known.
    bool readEntry(std::string_view line) {
        const auto equals = line.find('=');
        if (equals == std::string_view::npos || line.size() > longestEntry ||
            line.contains('\0')) { // no field, path or command can hold that
            return false;
        }
        const std::string_view key = trim(line.substr(0, equals));
        const std::string_view value = line.substr(equals + 1);
        if (equalIgnoringCase(key.substr(0, gridKeyPrefix.size()), gridKeyPrefix)) {
            return readGridLine(key, trim(value));
        }
        return readToolEntry(key, value) || readFieldEntry(key, value) || readExtension(key, value);
    }

    // The entries of the tools and of the settings without a field in the main window.
    bool readToolEntry(std::string_view key, std::string_view value) {
        const auto is = [key](std::string_view known) { return equalIgnoringCase(key, known); };
        if (is("MP EXECUTABLE")) {
            definition_.sMPExecutable = trim(value);
        } else if (is("CNS EXECUTABLE")) {
            definition_.sCNSExecutable = trim(value);
        } else if (is("Process MP")) {
            // On purpose not alike: MP is on unless stored "0", CNS is off unless stored "1".
            definition_.iProcessMP = trim(value) == "0" ? 0 : checked;
        } else if (is("Process CNS")) {
            definition_.iProcessCNS = trim(value) == "1" ? checked : 0;
        } else if (is("Convert HyperLink To Relative Path")) {
            definition_.bConvertHyperlinks = isTrue(value);
        } else if (is("Command Line Logging")) {
            definition_.bCommandLineLogging = isTrue(value);
        } else if (is("Command Line Log Filename")) {
            definition_.sCommandLineLogFile = trim(value);
        } else if (is("FIX DOC")) {
            definition_.iFixDoc = trim(value) == "1" ? 1 : 0;
        } else {
            return false;
        }
        return true;
    }

    bool readFieldEntry(std::string_view key, std::string_view value) {
        const auto is = [key](std::string_view known) { return equalIgnoringCase(key, known); };
        if (is("Input Folder")) {
            if (folders_.exists(trim(value))) {
                definition_.sInputFolder = trim(value);
            } else {
                passOver(key, value);
            }
        } else if (is("Input File Extension")) {
            definition_.sInputExtensions = value;
        } else if (is("Language")) {
            definition_.sLanguage = value;
        } else if (is("CNS Output Folder")) {
            definition_.sCNSOutputFolder = value;
        } else if (is("CNS Output File Extension")) {
            definition_.sCNSOutputExtension = value;
        } else if (is("Aliases File")) {
            readFile(key, trim(value), definition_.bUseAliases, definition_.sAliasesFile);
        } else if (is("Configuration File")) {
            readFile(key, trim(value), definition_.bUseConfigFile, definition_.sConfigFile);
            if (definition_.bUseConfigFile != checked) {
                forgetConfigurationEntries(definition_);
            }
        } else {
            return false;
        }
        return true;
    }

    // A file that is missing switches its use off; the old name stays in the field.
    void readFile(std::string_view key, std::string_view name, int& use, std::string& field) {
        use = FileExists(files_, resolvedFile(definition_.sAppFolder, name)) ? checked : 0;
        if (use == checked) {
            field = name;
        } else {
            passOver(key, name);
        }
    }

    void passOver(std::string_view key, std::string_view value) {
        if (!trim(value).empty()) {
            passedOver_.push_back({.key = std::string(key), .value = std::string(trim(value))});
        }
    }

    bool readExtension(std::string_view key, std::string_view value) {
        return setExtension(mpExtensions_, key, value) || setExtension(cnsExtensions_, key, value);
    }

    template <std::size_t rows>
    static bool setExtension(Extensions<rows>& extensions, std::string_view key,
                             std::string_view value) {
        for (std::size_t row = 0; row < rows; ++row) {
            if (equalIgnoringCase(key, extensions.types.at(row).extensionKey)) {
                extensions.texts.at(row) = value;
                return true;
            }
        }
        return false;
    }

    template <std::size_t rows>
    static void copyExtensions(const Extensions<rows>& extensions,
                               std::array<OutputDefinition, rows>& grid) {
        for (std::size_t row = 0; row < rows; ++row) {
            grid.at(row).sExtension = extensions.texts.at(row);
        }
    }

    bool readGridLine(std::string_view key, std::string_view folder) {
        return switchOn(definition_.CNSOutputs, key, folder) ||
               switchOn(definition_.MPOutputs, key, folder);
    }

    // True when a row has the key's type, whether or not its folder exists.
    bool switchOn(std::span<OutputDefinition> grid, std::string_view key, std::string_view folder) {
        const auto fileType = key.substr(gridKeyPrefix.size());
        for (OutputDefinition& output : grid) {
            if (equalIgnoringCase(output.sFileType, fileType)) {
                if (folders_.exists(resolvedFolder(definition_.sInputFolder, files_, folder))) {
                    output.bBuild = true;
                    output.sOutputFolder = folder;
                } else {
                    passOver(key, folder);
                }
                return true;
            }
        }
        return false;
    }

    BatchDefinition& definition_;
    const Files& files_;
    KnownFolders folders_;
    Extensions<mpOutputTypes.size()> mpExtensions_{mpOutputTypes};
    Extensions<cnsOutputTypes.size()> cnsExtensions_{cnsOutputTypes};
    std::vector<PassedOverEntry> passedOver_;
    bool begun_ = false;
    bool knowsEntry_ = false;
    bool holdsText_ = false;
};

// A text as if it stood in a file.
class TextInput : public InputFile {
  public:
    explicit TextInput(std::string_view text) : rest_(text) {}
    std::size_t read(std::span<char> buffer) override {
        const auto count = rest_.copy(buffer.data(), buffer.size());
        rest_.remove_prefix(count);
        return count;
    }

  private:
    std::string_view rest_;
};

std::vector<PassedOverEntry> readDefinitionFrom(InputFile& file, BatchDefinition& definition,
                                                const Files& files) {
    const BatchDefinition before = definition;
    switchOffAllOutputs(definition);
    // The file is ours and ends its lines with CR LF, but people edit it with what they have: a
    // bare LF ends a line too.
    LineReader lines(file, LineEnds::Any);
    IniReader reader(definition, files);
    while (const auto line = lines.next()) {
        reader.readLine(*line);
    }
    if (reader.isNoDefinition()) {
        definition = before;
        throw RunTimeError(ErrorNumber::InvalidFileFormat);
    }
    reader.finish();
    return std::move(reader).passedOver();
}

} // namespace

void readDefinition(BatchDefinition& definition, const Files& files) {
    // Opened first: a file that cannot be read must not cost the products in memory.
    readDefinitionFrom(*files.openForReading(definition.sINIFile), definition, files);
}

std::vector<PassedOverEntry> readDefinition(BatchDefinition& definition, const Files& files,
                                            std::string_view text) {
    TextInput file(text);
    return readDefinitionFrom(file, definition, files);
}

} // namespace tarnwick
