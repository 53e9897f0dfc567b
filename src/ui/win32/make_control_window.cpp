#include "platform/run_time_error.hpp"
#include "ui/forms/check_box.hpp"
#include "ui/win32/captioned_window.hpp"
#include "ui/win32/clickable_window.hpp"
#include "ui/win32/combo_box_window.hpp"
#include "ui/win32/control_window.hpp"
#include "ui/win32/folder_list_window.hpp"
#include "ui/win32/grid_window.hpp"
#include "ui/win32/indicator_windows.hpp"
#include "ui/win32/link_label_window.hpp"
#include "ui/win32/list_box_window.hpp"
#include "ui/win32/picture_window.hpp"
#include "ui/win32/text_box_window.hpp"

namespace tarnwick {
namespace {

// Null when the control is of another kind.
template <typename Kind, typename Window>
std::unique_ptr<ControlWindow> make(Control& control, HWND window) {
    auto* const kind = dynamic_cast<Kind*>(&control);
    return kind == nullptr ? nullptr : std::make_unique<Window>(*kind, window);
}

} // namespace

std::unique_ptr<ControlWindow> makeControlWindow(Control& control, HWND window) {
    // From the most particular kind to the most general.
    const auto makers = {
        make<TextBox, TextBoxWindow>,
        make<CheckBox, CheckBoxWindow>,
        make<LinkLabel, LinkLabelWindow>,
        make<Button, ButtonWindow>,
        make<Label, LabelWindow>,
        make<Frame, FrameWindow>,
        make<ListBox, ListBoxWindow>,
        make<ComboBox, ComboBoxWindow>,
        make<Grid, GridWindow>,
        make<DriveList, DriveListWindow>,
        make<FolderList, FolderListWindow>,
        make<StatusBar, StatusBarWindow>,
        make<ProgressBar, ProgressBarWindow>,
        make<Picture, PictureWindow>,
        make<Line, ControlWindow>,
    };
    for (const auto maker : makers) {
        if (auto made = maker(control, window); made != nullptr) {
            made->showAll();
            return made;
        }
    }
    throw RunTimeError(ErrorNumber::InternalError);
}

} // namespace tarnwick
