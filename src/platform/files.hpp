#pragma once

#include "platform/left_out.hpp"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// A file open for reading, from its first byte on. Closed by its destructor.
class InputFile {
  public:
    virtual ~InputFile() = default;
    // Fills the front of `buffer`, which is not empty, with the next bytes, as they stand in the
    // file, and returns how many there are: 0 exactly at the end of the file.
    // Raises 57 (device I/O error), 70 (another program has locked the range).
    virtual std::size_t read(std::span<char> buffer) = 0;
};

// A file open for writing. Bytes are written as they stand; no line end is translated. They are
// gathered: others read them after drain, flush or close at the latest, and what cannot be written
// may be told by a later call than the one that gave it.
class OutputFile {
  public:
    // Closes without a word; what close() would have raised is lost.
    virtual ~OutputFile() = default;
    // Appends all of `bytes`. Raises 61 (disk full), 57; the file then holds some prefix of what
    // was written.
    virtual void write(std::string_view bytes) = 0;
    // Gives the system what was written so far: from now on others read it. Raises 61, 57.
    virtual void drain() = 0;
    // As drain, and asks the system to put it on the medium, so that a loss of power does not undo
    // it. Where the volume knows no such request, that is all that can be done. Raises 61, 57.
    virtual void flush() = 0;
    // Ends the writing; nothing may be written afterwards. A second call does nothing.
    // Raises 61, 57; the file is closed all the same, and what had not been written is lost.
    virtual void close() = 0;
};

// What a folder holds. An entry whose name cannot be told, because a character has no place of its
// own in the system's code page or is a control character beyond ASCII, stands among the names
// under its short name; where the file system keeps none, it is left out. None is ever given under
// a similar name.
struct Listing {
    std::vector<std::string> names;
    LeftOut leftOut; // of those that were asked for; what has no place is shown by its number

    bool operator==(const Listing&) const = default;
};

// The file system. Paths are Windows paths in the system's 8-bit code page, "\" between folders;
// a path without a drive is relative to the current folder. Names match without regard to case.
// A folder may be given with or without a final "\"; "C:" as a folder to list is that drive's root.
// A failed change leaves the file system as it was, where nothing else is said.
// Whatever raises at all also raises 68 where the path's drive does not exist, 71 where it is not
// ready, and 52 where the path has a character that no name can have; in a "\\server\share" that
// is not there a folder is missing (76).
class Files {
  public:
    virtual ~Files() = default;

    // Whether `folder` can be listed, the way a folder of a local drive, a drive's root (even an
    // empty one) or a network share can. A file, a missing folder, a drive that is not ready, a
    // bad name and a folder that this user may not list are all false. Never raises.
    [[nodiscard]] virtual bool canListFolder(std::string_view folder) const = 0;

    // The name, without its folder, of the first normal file, by name (see nameLess in
    // wildcard.hpp), that matches `path`, whose last part may hold "*" and "?" and is one
    // pattern, whatever ";" it holds; empty when there is
    // none, as where the path ends in "\". Normal is what is no folder, not hidden and not system
    // (read-only files are normal). Raises 76 (no such folder).
    [[nodiscard]] virtual std::string firstNormalFile(std::string_view path) const = 0;

    // The names, without folder, of the normal files in `folder` that match any of the
    // ";"-separated wildcard patterns (see wildcard.hpp), each once, sorted by name
    // (see nameLess there). An empty pattern matches every file.
    // Raises 76 (no such folder), 75 (may not be listed).
    [[nodiscard]] virtual Listing listFiles(std::string_view folder,
                                            std::string_view patterns) const = 0;

    // The names of the folders in `folder`, without "." and "..", hidden and system ones left out,
    // sorted by name. Raises as listFiles.
    [[nodiscard]] virtual Listing listFolders(std::string_view folder) const = 0;

    // The drives that exist, as "C:", sorted.
    [[nodiscard]] virtual std::vector<std::string> drives() const = 0;

    // The process's current folder, without a final "\" unless it is a drive's root. Where its name
    // has no place in the code page: under its short name, or else by numbers (see left_out.hpp),
    // which is no possible path.
    [[nodiscard]] virtual std::string currentFolder() const = 0;

    // The same file under its short form, which has no blanks, as far as the file system keeps
    // short names; `path` itself where it keeps none. The file or folder must exist; raises 53
    // (it does not), 76.
    [[nodiscard]] virtual std::string shortPath(std::string_view path) const = 0;

    // Opens an existing file; others may go on reading and writing it.
    // Raises 53 (no such file), 76 (no such folder), 75 (a folder, or not allowed),
    // 70 (another program keeps it to itself).
    [[nodiscard]] virtual std::unique_ptr<InputFile>
    openForReading(std::string_view path) const = 0;

    // Creates `path`, or empties it when it exists, for writing. While it is open others may read
    // but not write it. It stays hidden or system if it was. Raises 75 (a folder, read-only, or not
    // allowed), 70 (kept or being written by another program,
    // and still after half a second), 76 (no such folder), 61.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> create(std::string_view path) = 0;

    // As create, but only where nothing of that name exists, be it a link that leads nowhere, in
    // one step: of several who ask at the same time, one gets the file. Raises 58 where it does.
    // When it raises, it has made nothing.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> createNew(std::string_view path) = 0;

    // As create, but writes behind what the file already holds.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> append(std::string_view path) = 0;

    // Deletes one file; no wildcards. Raises 53 (no such file, or a folder), 75 (read-only),
    // 70 (in use, if only for reading, and still after half a second), 76.
    virtual void remove(std::string_view path) = 0;

    // Creates one folder. Raises 75 (something of that name exists, or not allowed),
    // 76 (its parent is missing).
    virtual void createFolder(std::string_view path) = 0;

    // Puts the file `from` in the place of `to` in one step: whoever opens `to` finds the old
    // content or the new, never half of one and never none, and `from` is gone afterwards. That
    // holds after a loss of power too, as far as the file system keeps what it was told in order.
    // `to` need not exist; where it does, it keeps who may do what with it and whether it is
    // hidden, as far as the system lets this user. Both must lie on one volume. Raises 53 (no
    // `from`, or a folder), 75 (`to` is read-only, a folder or a link), 70 (one of them is in use,
    // and still after half a second), 74 (the volumes differ), 76; both files are then as they
    // were. Where several of these apply, any one of them is raised.
    virtual void moveOver(std::string_view from, std::string_view to) = 0;

    // As moveOver, but nothing of an old `to` is kept: who may do what with it afterwards is what
    // holds for `from`. A link is replaced itself, not what it leads to. For a file that somebody
    // else may have put there.
    virtual void replace(std::string_view from, std::string_view to) = 0;
};

} // namespace tarnwick
