#include "ui/forms/drive_list.hpp"

#include "common/full_path.hpp"
#include "platform/run_time_error.hpp"

#include <algorithm>

namespace tarnwick {

DriveList::DriveList(Form& form, std::string_view name, const Files& files)
    : Control(form, name),
      files_(files),
      drives_(files.drives()),
      drive_(driveOf(files.currentFolder())) {}

void DriveList::setDrive(std::string_view path) {
    const std::string drive = driveOf(fullPath(path, files_.currentFolder()));
    if (!drive.empty() && std::ranges::find(drives_, drive) == drives_.end()) {
        // A stick that was put in since the last look.
        std::vector<std::string> drives = files_.drives();
        if (std::ranges::find(drives, drive) == drives.end()) {
            throw RunTimeError(ErrorNumber::DeviceUnavailable);
        }
        set(drives_, std::move(drives), Property::Items);
    }
    if (drive != drive_) {
        set(drive_, drive, Property::Text);
        if (!drive_.empty()) {
            fire(Change);
        }
    }
}

void DriveList::userPicked(std::size_t index) {
    const std::string picked = index < drives_.size() ? drives_[index] : std::string();
    if (!userBroughtFocus() || std::ranges::find(drives_, picked) == drives_.end()) {
        tellView(Property::Text);
    } else if (picked != drive_) {
        set(drive_, picked, Property::Text);
        fire(Change);
    }
}

} // namespace tarnwick
