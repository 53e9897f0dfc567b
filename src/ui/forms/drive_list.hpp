#pragma once

#include "platform/files.hpp"
#include "ui/forms/control.hpp"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

// The machine's drives, one of which is chosen: the current folder's, to begin with.
class DriveList final : public Control {
  public:
    // Refers to `files`, which must outlive it.
    DriveList(Form& form, std::string_view name, const Files& files);

    // As "C:".
    [[nodiscard]] const std::vector<std::string>& drives() const noexcept { return drives_; }
    // As "C:"; empty where a folder of no drive was chosen, but of a share.
    [[nodiscard]] const std::string& drive() const noexcept { return drive_; }
    // The drive of this path. Fires Change when it is another one, but not for a folder of a
    // share, which is on no drive. Raises 68 for a drive that is not there; all stays as it was.
    void setDrive(std::string_view path);

    // The user picked the entry of that index. Another control that loses the focus by it may
    // change the list first: the index counts in the list that the user saw.
    void userPicked(std::size_t index);

    std::function<void()> Change; // by the user or by code

  private:
    const Files& files_;
    std::vector<std::string> drives_;
    std::string drive_;
};

} // namespace tarnwick
