#pragma once

#include "platform/files.hpp"
#include "ui/forms/control.hpp"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnwick {

// One folder at a time, as a tree: the folders on the way to it from the root, and those in it. It
// starts at the process's current folder.
class FolderList final : public Control {
  public:
    struct Entry {
        std::string name;
        std::string path;
        int depth = 0;     // 0 is the root
        bool open = false; // on the way to the path, or the path itself

        bool operator==(const Entry&) const = default;
    };

    // Refers to `files`, which must outlive it.
    FolderList(Form& form, std::string_view name, const Files& files);

    // In full, without a final "\" unless it is a drive's root.
    [[nodiscard]] const std::string& path() const noexcept { return path_; }
    // Lists the folder afresh, and fires Change when the path is another one. A relative path
    // counts from the current folder, "C:" is that drive's root. Raises 76, 75 (may not be listed),
    // 68, 71 or 52; all stays as it was.
    void setPath(std::string_view path);

    // From the root down, then the folders in the path, sorted by name.
    [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }
    // The path's own entry, until the user selects another.
    [[nodiscard]] std::size_t selected() const noexcept { return selected_; }

    // Which folders the last listing could not name; asked again, none.
    [[nodiscard]] LeftOut takeLeftOut() { return std::exchange(leftOut_, {}); }

    // Shows already in the view; opens nothing.
    void userSelected(std::size_t index);
    // A double click. Fires Refused when the folder cannot be listed.
    void userOpened(std::size_t index);
    // Enter opens the selected folder, unless it is the path already.
    void userPressedKey(int keyCode) override;
    [[nodiscard]] bool wantsKey(int keyCode) const override;

    std::function<void()> Change; // by the user or by code
    std::function<void(const std::string& path)> Refused;

  private:
    [[nodiscard]] std::vector<Entry> entriesOf(const std::string& path,
                                               std::vector<std::string> folders) const;
    [[nodiscard]] std::string pathAt(std::size_t index) const;
    [[nodiscard]] std::vector<Entry>::const_iterator entryOf(std::string_view path) const;

    const Files& files_;
    std::string path_;
    std::vector<Entry> entries_;
    std::size_t selected_ = 0;
    LeftOut leftOut_;
};

} // namespace tarnwick
