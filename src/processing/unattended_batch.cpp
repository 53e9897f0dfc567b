#include "processing/unattended_batch.hpp"

#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "platform/run_time_error.hpp"
#include "processing/batch_writer.hpp"

#include <utility>

namespace tarnwick {
namespace {

constexpr int namesPerFolder = 1000;

void writeLine(OutputFile& file, std::string_view line) {
    file.write(std::string(line).append(lineEnd));
    file.close();
}

std::string callLine(std::string_view program, std::string_view file) {
    return "Call " + quoted(program) + " " + quoted(file);
}

void writeCommandBatch(UnattendedBatch& names, const UnattendedWork& work,
                       const CommandInterpreter& interpreter) {
    BatchWriter batch(std::move(names.file), interpreter);
    changeToFolder(batch, work.definition.sInputFolder);
    batch.line("");
    for (const std::string& record : work.records) {
        for (const ToolStep& step : toolSteps(work.definition, record)) {
            batch.line(work.lineOf(step));
        }
    }
    if (work.notify) {
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

struct NumberedFile {
    std::string number; // empty for the first
    std::string path;
    std::unique_ptr<OutputFile> file;
};

// A new file under the first name that is not taken; nothing when all are.
std::optional<NumberedFile> createNumbered(Files& files, const std::string& stem,
                                           std::string_view extension) {
    for (int n = 0; n < namesPerFolder; ++n) {
        std::string number = n == 0 ? "" : std::to_string(n);
        std::string path = (stem + number).append(extension);
        if (auto file = createUnlessTaken(files, path)) {
            return NumberedFile{
                .number = std::move(number), .path = std::move(path), .file = std::move(file)};
        }
    }
    return std::nullopt;
}

// Made new by every run: where others may write in the temporary folder, one of them may have put
// it there, could change it as long as it is his, and this user's batch would run it. Other runs
// may be calling it at this moment: so it is put into place in one step. False where all names are
// taken.
bool renewDeleteBatch(Files& files, const std::string& folder, const std::string& deleteBatch) {
    auto fresh = createNumbered(files, folder + "MPDELETE", ".tmp");
    if (!fresh) {
        return false;
    }
    try {
        writeLine(*fresh->file, "del %1");
        files.replace(fresh->path, deleteBatch);
    } catch (...) {
        fresh->file.reset();
        removeQuietly(files, fresh->path);
        throw;
    }
    return true;
}

} // namespace

std::optional<UnattendedBatch> createUnattendedBatch(const BatchDefinition& definition,
                                                     Files& files) {
    const std::string& folder = definition.sTempFolder;
    const std::string deleteBatch = folder + "MPDELETE.bat";
    if (!renewDeleteBatch(files, folder, deleteBatch)) {
        return std::nullopt;
    }
    auto batch = createNumbered(files, folder + "MP_CL", ".bat");
    if (!batch) {
        return std::nullopt;
    }
    return UnattendedBatch{.commandBatch = std::move(batch->path),
                           .deleteBatch = deleteBatch,
                           .notificationText = folder + "MP_Notify" + batch->number + ".txt",
                           .file = std::move(batch->file)};
}

void writeUnattendedBatch(UnattendedBatch& batch, const UnattendedWork& work, Files& files,
                          const CommandInterpreter& interpreter) {
    try {
        if (work.notify) {
            writeLine(*createAnew(files, batch.notificationText),
                      "The Tarnwick script " + quoted(batch.commandBatch) + " is done running.");
        }
        writeCommandBatch(batch, work, interpreter);
    } catch (...) {
        batch.file.reset();
        removeUnattendedBatch(batch, files);
        throw;
    }
}

void removeUnattendedBatch(const UnattendedBatch& batch, Files& files) {
    removeQuietly(files, batch.commandBatch);
    removeQuietly(files, batch.notificationText);
}

} // namespace tarnwick
