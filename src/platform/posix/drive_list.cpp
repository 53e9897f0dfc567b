#include "platform/posix/drive_list.hpp"

#include "platform/posix/posix_open_files.hpp"
#include "platform/run_time_error.hpp"
#include "platform/windows_path.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

bool isDriveName(std::string_view volume) {
    return volume.size() == 2 && beginsWithDrive(volume);
}

bool isShareName(std::string_view volume) {
    if (!isOnShare(volume) || !isPossiblePath(volume) || volume.contains(':')) {
        return false;
    }
    const auto names = volume.substr(2);
    const auto end = names.find('\\');
    return end != 0 && end < names.size() - 1 && !names.substr(end + 1).contains('\\');
}

// `where` says where the entry stands, behind its text in a sentence.
Mount entry(std::string_view text, const std::string& where) {
    const auto equals = std::min(text.find('='), text.size());
    std::string volume(withoutBlanks(text.substr(0, equals)));
    std::ranges::replace(volume, '/', '\\');
    const auto folder = withoutBlanks(text.substr(std::min(equals + 1, text.size())));
    if ((!isDriveName(volume) && !isShareName(volume)) || folder.empty()) {
        throw RunTimeError(
            ErrorNumber::BadFileName,
            '"' + std::string(text) + '"' + where +
                R"( says no drive: one is like T:=/srv/meta or \\server\share=/mnt/x)");
    }
    return {.volume = std::move(volume), .hostFolder = std::string(folder)};
}

// The pieces of `text` between those separators.
std::vector<std::string_view> pieces(std::string_view text, char separator) {
    std::vector<std::string_view> result;
    while (!text.empty()) {
        const auto end = std::min(text.find(separator), text.size());
        result.push_back(withoutBlanks(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

std::string userFile(const Environment& environment) {
    auto folder = environment("XDG_CONFIG_HOME");
    if (!folder.starts_with('/')) { // a relative one does not count
        const auto home = environment("HOME");
        folder = home.empty() ? std::string() : home + "/.config";
    }
    return folder.empty() ? folder : folder + "/tarnwick/drives";
}

} // namespace

std::vector<Mount> driveList(const DriveSources& sources) {
    std::vector<Mount> mounts;
    mounts.reserve(sources.options.size());
    for (const std::string& option : sources.options) {
        mounts.push_back(entry(option, ""));
    }
    for (const auto piece : pieces(sources.variable, ';')) {
        if (!piece.empty()) {
            mounts.push_back(entry(piece, " in TARNWICK_DRIVES"));
        }
    }
    std::size_t number = 0;
    for (const auto line : pieces(sources.fileText, '\n')) {
        ++number;
        if (!line.empty() && !line.starts_with('#')) {
            mounts.push_back(
                entry(line, " in line " + std::to_string(number) + " of " + sources.fileName));
        }
    }
    return mounts;
}

DriveSources driveSources(std::vector<std::string> options, const Environment& environment) {
    DriveSources sources{.options = std::move(options),
                         .variable = environment("TARNWICK_DRIVES"),
                         .fileName = userFile(environment),
                         .fileText = {}};
    try {
        sources.fileText = sources.fileName.empty() ? "" : textOf(sources.fileName);
    } catch (const RunTimeError& error) {
        throw error.described("The drives in " + sources.fileName +
                              " cannot be read: " + error.what());
    }
    return sources;
}

Mounts mountsFrom(const DriveSources& sources) {
    auto list = driveList(sources);
    for (const auto& [volume, folder] : list) {
        std::error_code error;
        if (!fs::is_directory(folder, error)) {
            throw RunTimeError(ErrorNumber::PathNotFound, volume + " should lie in \"" + folder +
                                                              "\", but there is no such folder");
        }
    }
    return Mounts::of(std::move(list));
}

std::string environmentVariable(const std::string& name) {
    const char* value = std::getenv(name.c_str()); // NOLINT(concurrency-mt-unsafe): none sets one
    return value == nullptr ? std::string() : value;
}

} // namespace tarnwick
