#pragma once

#include "platform/desktop.hpp"
#include "platform/files.hpp"
#include "ui/forms/form_presenter.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// The folder that the user chose in the folder picker; empty when there is none. An empty title is
// the picker's own. `startFolder` may be empty or no folder at all.
[[nodiscard]] std::string pickFolder(FormPresenter& presenter, Files& files, Desktop& desktop,
                                     std::string_view title, std::string_view startFolder);

} // namespace tarnwick
