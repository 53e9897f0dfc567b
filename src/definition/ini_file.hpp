#pragma once

#include "definition/batch_definition.hpp"
#include "platform/desktop.hpp"
#include "platform/files.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The INI file: one batch definition as KEY=value lines, without sections, comments or escaping.
// An output product stands in it only when it is to be built, with its folder only when that
// exists: a stored product is a product to build, any other comes back off and with its defaults.

// The whole file that stores `definition`, each line ended by CR LF.
[[nodiscard]] std::string iniFileText(const BatchDefinition& definition, const Files& files);

// Replaces the file `sINIFile` by one that stores the definition, in one step, and clears
// `bSettingsChanged`. Raises what writeInOneStep raises; the old file and `bSettingsChanged` are
// then as they were.
void writeDefinition(BatchDefinition& definition, Files& files);

// Reads the file `sINIFile` into the definition. Raises what Files::openForReading and
// InputFile::read raise; the definition then holds what was read so far. A file that holds
// something, but not one entry that is known, is none of ours: that raises 321, and the definition
// stays as it was.
void readDefinition(BatchDefinition& definition, const Files& files);

// An entry that names a file or folder which is not there: the definition does without it.
struct PassedOverEntry {
    std::string key;
    std::string value;

    bool operator==(const PassedOverEntry&) const = default;
};

// The same for a file that holds `text`, where the file itself is in another code page than this
// machine's. Gives the entries that were passed over. Raises 321.
std::vector<PassedOverEntry> readDefinition(BatchDefinition& definition, const Files& files,
                                            std::string_view text);

// As writeDefinition. True when all went well; an error is reported.
bool SaveINIFile(BatchDefinition& definition, Files& files, Desktop& desktop);

// As readDefinition, and clears `bSettingsChanged`. Where the file does not exist, `sINIFile`
// becomes the default file in the program's folder; where that does not exist either, nothing is
// read, and that is no error.
// `whenRead` is called at the end, exactly when a file was read: the place to bring a window up to
// date. True when all went well; an error, also one of `whenRead`, is reported, and
// `bSettingsChanged` is then as it was.
bool ReadINIFile(BatchDefinition& definition, const Files& files, Desktop& desktop,
                 const std::function<void()>& whenRead);

} // namespace tarnwick
