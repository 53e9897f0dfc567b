#include "processing/command_line_batch.hpp"

#include "common/known_folders.hpp"
#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "processing/batch_writer.hpp"
#include "processing/tool_statements.hpp"

#include <utility>

namespace tarnwick {
namespace {

constexpr int namesPerFolder = 1000;

// Other runs may be reading the delete batch at this moment: one that is right is left alone.
bool holdsLine(const Files& files, std::string_view path, std::string_view line) {
    if (!FileExists(files, path)) {
        return false;
    }
    const std::string expected = std::string(line).append(lineEnd);
    std::string content(expected.size() + 1, '\0');
    content.resize(files.openForReading(path)->read(content));
    return content == expected;
}

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
    if (definition.iProcessMP == checked) {
        const auto [folder, file] = mpInput(definition, record, cnsOutput);
        batch.line(sBuildMPstatement(definition, services, folder, file));
    }
}

std::string callLine(std::string_view program, std::string_view file) {
    return "Call " + quoted(program) + " " + quoted(file);
}

void writeCommandBatch(CommandLineBatch& names, bool notify, const BatchDefinition& definition,
                       std::span<const std::string> records,
                       const CommandLineBatchServices& services) {
    KnownFolders folders(services.files);
    const StatementServices statements{.folders = folders, .desktop = services.desktop};
    BatchWriter batch(std::move(names.file), services.interpreter);
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

// Null where the name is taken, be it only since a moment ago.
std::unique_ptr<OutputFile> createUnlessTaken(Files& files, std::string_view path) {
    try {
        return FileExists(files, path) ? nullptr : files.createNew(path);
    } catch (const RunTimeError& error) {
        if (error.is(ErrorNumber::FileAlreadyExists)) {
            return nullptr;
        }
        throw;
    }
}

} // namespace

std::optional<CommandLineBatch> createCommandLineBatch(const BatchDefinition& definition,
                                                       Files& files, Desktop& desktop) {
    const std::string& folder = definition.sTempFolder;
    const std::string deleteBatch = folder + "MPDELETE.bat";
    if (constexpr std::string_view deleteLine = "del %1";
        !holdsLine(files, deleteBatch, deleteLine)) {
        writeLine(files, deleteBatch, deleteLine);
    }
    for (int n = 0; n < namesPerFolder; ++n) {
        const std::string number = n == 0 ? "" : std::to_string(n);
        std::string commandBatch = folder + "MP_CL" + number + ".bat";
        if (auto file = createUnlessTaken(files, commandBatch)) {
            return CommandLineBatch{.commandBatch = std::move(commandBatch),
                                    .deleteBatch = deleteBatch,
                                    .notificationText = folder + "MP_Notify" + number + ".txt",
                                    .file = std::move(file)};
        }
    }
    desktop.show({.text = "Need to clean user " + quoted(folder) + " folder.",
                  .title = std::string(applicationTitle)});
    return std::nullopt;
}

void writeCommandLineBatch(CommandLineBatch& batch, bool notify, const BatchDefinition& definition,
                           std::span<const std::string> records,
                           const CommandLineBatchServices& services) {
    try {
        if (notify) {
            writeLine(services.files, batch.notificationText,
                      "The Tarnwick script " + quoted(batch.commandBatch) + " is done running.");
        }
        writeCommandBatch(batch, notify, definition, records, services);
    } catch (...) {
        batch.file.reset();
        removeCommandLineBatch(batch, services.files);
        throw;
    }
}

void removeCommandLineBatch(const CommandLineBatch& batch, Files& files) {
    removeQuietly(files, batch.commandBatch);
    removeQuietly(files, batch.notificationText);
}

} // namespace tarnwick
