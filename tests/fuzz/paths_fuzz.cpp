// Two paths, a folder and a filter, a line each: links, parts, full paths and extensions are what
// plain second versions give, and every path can be put together again without losing anything.

#include "common/full_path.hpp"
#include "fields.hpp"
#include "platform/case_folding.hpp"
#include "platform/characters.hpp"
#include "platform/default_extension.hpp"
#include "platform/windows_path.hpp"
#include "postprocess/relative_links.hpp"
#include "reference/plain_paths.hpp"
#include "require.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

void tryLink(const std::string& from, const std::string& to) {
    const std::string link = withSlashes(relativePath(from, to));
    require(link == reference::relativeLink(from, to), "the link is what the plain version gives");
}

void tryParts(const std::string& path) {
    require(GetBaseName(path) == reference::baseName(path),
            "the base name is what the plain version gives");
    const std::string name = GetFileName(path);
    const std::string whole = path.contains('\\') ? GetFolderPath(path) + '\\' + name : name;
    require(whole == path, "folder and name are the whole path");
    require(lastPart(path) == reference::lastPart(path),
            "the last part is what the plain version gives");
    require(isPossiblePath(path) == reference::isPossiblePath(path),
            "a path is possible as by the plain version");
    require(isPossiblePattern(path) == reference::isPossiblePattern(path),
            "a pattern is possible as by the plain version");
}

void tryExtension(const std::string& path, const std::string& filter) {
    require(withDefaultExtension(path, filter) == reference::withDefaultExtension(path, filter),
            "the extension is what the plain version gives");
}

void tryFull(const std::string& path, const std::string& folder) {
    const std::string base = fullPath(folder, "C:\\");
    require(base == reference::fullPath(folder, "C:\\"), "the folder is made full");
    const std::string full = fullPath(path, base);
    require(full == reference::fullPath(path, base),
            "the full path is what the plain version gives");
    require(fullPath(full, "D:\\other") == full || !isFullPath(full) || trim(full) != full,
            "a full path is full already");
    if (isFullPath(full) && !trim(full).starts_with("\\\\")) {
        std::string together;
        for (const std::string& name : foldersOnTheWay(full)) {
            together = together.empty() ? name : withBackslash(together) + name;
        }
        require(together == full, "the folders on the way lead there");
        require(driveOf(full) == upperCase(full.substr(0, 2)), "the drive is where it begins");
    }
}

void tryBytes(std::string_view bytes) {
    Fields fields(bytes);
    const std::string one = fields.next();
    const std::string other = fields.next();
    const std::string folder = fields.next();
    tryLink(one, other);
    tryParts(one);
    tryExtension(one, fields.next());
    tryExtension(one, "Any (*.ini)|*.ini");
    tryFull(one, folder);
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryBytes({reinterpret_cast<const char*>(data), size});
    return 0;
}
