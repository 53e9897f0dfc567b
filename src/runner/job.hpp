#pragma once

#include "definition/batch_definition.hpp"
#include "definition/ini_file.hpp"
#include "platform/file_stamps.hpp"
#include "platform/files.hpp"
#include "platform/tool_paths.hpp"
#include "runner/products.hpp"
#include "runner/share.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// What a user asks for. All paths are Windows paths; an empty text leaves it to the definition.
struct JobRequest {
    std::string inputFolder;
    std::string inputExtensions;
    std::string mpExecutable;
    std::string cnsExecutable;
    std::vector<std::string> records;        // names or patterns; none at all: every record
    std::optional<Share> share;              // of these records, only its own
    bool inPlace = false;                    // a record may be overwritten by what is made of it
    std::vector<PassedOverEntry> passedOver; // by the reader of the definition
    bool runsTools = true; // else tools and the folders of outputs need not be there
};

struct RefusedRecord {
    std::string name;
    std::string why; // a sentence

    bool operator==(const RefusedRecord&) const = default;
};

// What is to be done, checked as far as it can be before anything is started.
struct Job {
    BatchDefinition definition; // its paths are full
    std::vector<StampedFile> records;
    std::vector<RefusedRecord> refused;    // records that are not run
    std::vector<std::string> remarks;      // for the user, who may want to know
    std::optional<StampedListing> listing; // of the input folder: the planner needs it too
};

struct CheckedJob {
    Job job;
    std::vector<std::string> faults; // sentences, all of them; with one, nothing can be run
};

// What a job is checked against.
struct JobServices {
    const Files& files;
    const FileStamps& stamps;
    const ToolPaths& paths;
    // Whether the system could start that file, by its Windows path.
    std::function<bool(const std::string& program)> canStart;
};

// `definition` is as the program starts with it, and has been read. Never raises: what goes wrong
// is a fault.
[[nodiscard]] CheckedJob checkJob(BatchDefinition definition, const JobRequest& request,
                                  const JobServices& services);

// The same path as the user writes it on this system; as it is where the system has no such place.
[[nodiscard]] std::string shownPath(const ToolPaths& paths, std::string_view path);

} // namespace tarnwick
