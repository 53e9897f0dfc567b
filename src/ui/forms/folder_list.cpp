#include "ui/forms/folder_list.hpp"

#include "common/full_path.hpp"
#include "common/text.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/keys.hpp"

#include <algorithm>
#include <utility>

namespace tarnwick {
namespace {

std::size_t indexOfPath(const std::vector<FolderList::Entry>& entries) noexcept {
    std::size_t last = 0;
    while (last + 1 < entries.size() && entries[last + 1].open) {
        ++last;
    }
    return last;
}

} // namespace

FolderList::FolderList(Form& form, std::string_view name, const Files& files)
    : Control(form, name),
      files_(files),
      path_(fullPath({}, files.currentFolder())),
      entries_(entriesOf(path_, {})) {
    if (files_.canListFolder(path_)) {
        Listing listing = files_.listFolders(path_);
        entries_ = entriesOf(path_, std::move(listing.names));
        leftOut_ = std::move(listing.leftOut);
    }
    selected_ = indexOfPath(entries_);
}

std::vector<FolderList::Entry> FolderList::entriesOf(const std::string& path,
                                                     std::vector<std::string> folders) const {
    std::vector<Entry> entries;
    for (std::string& name : foldersOnTheWay(path)) {
        std::string whole = entries.empty() ? name : withBackslash(entries.back().path) + name;
        const int depth = static_cast<int>(entries.size());
        entries.push_back(
            {.name = std::move(name), .path = std::move(whole), .depth = depth, .open = true});
    }
    const int depth = static_cast<int>(entries.size());
    for (std::string& name : folders) {
        std::string whole = withBackslash(path) + name;
        entries.push_back(
            {.name = std::move(name), .path = std::move(whole), .depth = depth, .open = false});
    }
    return entries;
}

void FolderList::setPath(std::string_view path) {
    std::string wanted = fullPath(path, files_.currentFolder());
    Listing listing = files_.listFolders(wanted);
    std::vector<Entry> entries = entriesOf(wanted, std::move(listing.names));
    leftOut_ = std::move(listing.leftOut);
    const bool another = wanted != path_;
    path_ = std::move(wanted);
    selected_ = indexOfPath(entries);
    set(entries_, std::move(entries), Property::Items);
    tellView(Property::Selection);
    if (another) {
        fire(Change);
    }
}

std::vector<FolderList::Entry>::const_iterator FolderList::entryOf(std::string_view path) const {
    return std::ranges::find_if(
        entries_, [&](const Entry& entry) { return equalIgnoringCase(entry.path, path); });
}

// Empty where there is no such entry: what is clicked may be one of a list that the view shows no
// more. The focus that a click brings may fill the list anew, so what it is on is known by its
// path.
std::string FolderList::pathAt(std::size_t index) const {
    return index < entries_.size() ? entries_[index].path : std::string();
}

void FolderList::userSelected(std::size_t index) {
    const std::string clicked = pathAt(index);
    const bool mayBeRefilled = form().focused() != this;
    const bool mayAct = userBroughtFocus();
    const auto entry = entryOf(clicked);
    const bool found = mayAct && entry != entries_.end();
    if (found) {
        selected_ = static_cast<std::size_t>(entry - entries_.begin());
    }
    if (!found || mayBeRefilled) {
        tellView(Property::Selection);
    }
}

void FolderList::userOpened(std::size_t index) {
    const std::string path = pathAt(index);
    if (!userBroughtFocus() || entryOf(path) == entries_.end()) {
        return;
    }
    if (files_.canListFolder(path)) {
        setPath(path);
    } else {
        fire(Refused, path);
    }
}

void FolderList::userPressedKey(int keyCode) {
    if (wantsKey(keyCode)) {
        userOpened(selected_);
    }
}

bool FolderList::wantsKey(int keyCode) const {
    return keyCode == Key::enter && selected_ != indexOfPath(entries_);
}

} // namespace tarnwick
