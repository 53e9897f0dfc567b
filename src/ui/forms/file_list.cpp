#include "ui/forms/file_list.hpp"

#include "platform/run_time_error.hpp"

namespace tarnwick {

void FileList::setPattern(std::string_view pattern) {
    pattern_ = pattern;
    listed_ = false;
}

void FileList::setPath(std::string_view path) {
    if (!path.empty() && !files_.canListFolder(path)) {
        throw RunTimeError(ErrorNumber::PathNotFound);
    }
    path_ = path;
    listed_ = false;
}

const Listing& FileList::listing() {
    if (!listed_) {
        listing_ = path_.empty() ? Listing() : files_.listFiles(path_, pattern_);
        listed_ = true;
    }
    return listing_;
}

} // namespace tarnwick
