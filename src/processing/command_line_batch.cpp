#include "processing/command_line_batch.hpp"

#include "common/known_folders.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "processing/batch_writer.hpp"
#include "processing/tool_statements.hpp"

namespace tarnwick {
namespace {

constexpr int namesPerFolder = 1000;

void writeLine(Files& files, std::string_view path, std::string_view line) {
    const auto file = files.create(path);
    file->write(std::string(line).append(lineEnd));
    file->close();
}

// The tools' lines of one record, CNS first: its output is then MP's input.
void writeRecord(BatchWriter& batch, const BatchDefinition& definition,
                 const StatementServices& services, const std::string& record) {
    std::string cnsOutput;
    if (definition.iProcessCNS == checked) {
        batch.line(
            sBuildCNSstatement(definition, services, definition.sInputFolder, record, cnsOutput));
    }
    if (definition.iProcessMP != checked) {
        return;
    }
    if (definition.iProcessCNS == checked) {
        const std::string& folder =
            definition.bCfgNamesOutput ? definition.sInputFolder : definition.sCNSOutputFolder;
        batch.line(sBuildMPstatement(definition, services, folder, cnsOutput));
    } else {
        batch.line(sBuildMPstatement(definition, services, definition.sInputFolder, record));
    }
}

std::string callLine(std::string_view program, std::string_view file) {
    return "Call " + quoted(program) + " " + quoted(file);
}

void writeCommandBatch(const CommandLineBatch& names, bool notify,
                       const BatchDefinition& definition, std::span<const std::string> records,
                       const CommandLineBatchServices& services) {
    KnownFolders folders(services.files);
    const StatementServices statements{.folders = folders, .desktop = services.desktop};
    BatchWriter batch(services.files, services.interpreter, names.commandBatch);
    changeToFolder(batch, definition.sInputFolder);
    batch.line("");
    for (const std::string& record : records) {
        writeRecord(batch, definition, statements, record);
    }
    if (notify) {
        batch.line(callLine("notepad.exe", names.notificationText));
        batch.line(callLine(names.deleteBatch, names.notificationText));
    }
    batch.line(callLine(names.deleteBatch, names.commandBatch));
    batch.close();
}

} // namespace

std::optional<CommandLineBatch> nameCommandLineBatch(const BatchDefinition& definition,
                                                     Files& files, Desktop& desktop) {
    const std::string& folder = definition.sTempFolder;
    CommandLineBatch names{.commandBatch = folder + "MP_CL.bat",
                           .deleteBatch = folder + "MPDELETE.bat",
                           .notificationText = folder + "MP_Notify.txt"};
    writeLine(files, names.deleteBatch, "del %1");
    for (int n = 1; FileExists(files, names.commandBatch); ++n) {
        if (n == namesPerFolder) {
            desktop.show({.text = "Need to clean user " + quoted(folder) + " folder.",
                          .title = std::string(applicationTitle)});
            return std::nullopt;
        }
        names.commandBatch = folder + "MP_CL" + std::to_string(n) + ".bat";
        names.notificationText = folder + "MP_Notify" + std::to_string(n) + ".txt";
    }
    return names;
}

void writeCommandLineBatch(const CommandLineBatch& batch, bool notify,
                           const BatchDefinition& definition, std::span<const std::string> records,
                           const CommandLineBatchServices& services) {
    try {
        if (notify) {
            writeLine(services.files, batch.notificationText,
                      "The Tarnwick script " + quoted(batch.commandBatch) + " is done running.");
        }
        writeCommandBatch(batch, notify, definition, records, services);
    } catch (...) {
        removeCommandLineBatch(batch, services.files);
        throw;
    }
}

void removeCommandLineBatch(const CommandLineBatch& batch, Files& files) {
    removeQuietly(files, batch.commandBatch);
    removeQuietly(files, batch.notificationText);
}

} // namespace tarnwick
