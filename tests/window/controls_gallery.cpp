// controls_gallery window RESULT LAYOUT: shows one of every kind of control in a main window. The
// file LAYOUT says where each control and some cells are, for somebody with a mouse: "name x y",
// the middle in twips from the upper left corner of the menu bar. RESULT has a line for every event
// as soon as its handler has run.
//
// controls_gallery names RESULT LAYOUT: the same; Help, About writes into RESULT what a screen
// reader says of the grid.
//
// controls_gallery scaled RESULT LAYOUT: the same; Help, About writes into RESULT how large the
// window would be on monitors of some resolutions.
//
// controls_gallery lists RESULT COUNT: moves COUNT names from one list to another and back. RESULT
// has a line for each step and list: "STEP LIST REFILLS NAMES DRAWN EXTENT OTHERS", which are the
// horizontal extent behind it and numbers of messages, see CountingListBox. Every character counts
// as 100 pixels wide.

#include "platform/run_time_error.hpp"
#include "platform/win32/win32_files.hpp"
#include "ui/win32/com_pointer.hpp"
#include "ui/win32/resource_names.hpp"
#include "ui/win32/win32_main_window.hpp"
#include "window/counting_list_box.hpp"
#include "window/frm_controls.hpp"
#include "window/gallery.hpp"

#include <windows.h>

#include <oleacc.h>

#include <array>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnwick::gallery {
namespace {

// Every other one, or all.
void moveEvery(frmControls& form, int distance) {
    std::vector<int> indices;
    for (int i = 0; i < static_cast<int>(form.lstFiles.items().size()); i += distance) {
        indices.push_back(i);
    }
    form.lstFiles.userSelected(indices);
    form.cmdMove.Click();
}

std::vector<std::string> namesOf(int count) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        names.push_back("metadata record " + std::to_string(1'000'000 + i) + ".met");
    }
    return names;
}

// Null where the form's resource names no such control.
HWND windowOf(HWND dialog, const Form& form, std::string_view name) {
    for (const auto& [id, text] : textsInResource(form.name())) {
        if (text == name) {
            return GetDlgItem(dialog, id);
        }
    }
    return nullptr;
}

// From inside the form, once it is there.
void countListMessages(frmControls& form, const std::string& resultFile, int count) {
    // No font has such widths: whoever asked the system for one would get another answer.
    CharacterWidths widths{};
    widths.fill(100);
    form.lstFiles.measured(widths);
    form.lstChosen.measured(widths);
    HWND dialog = FindWindowA(nullptr, form.caption().c_str());
    CountingListBox files(windowOf(dialog, form, "lstFiles"));
    CountingListBox chosen(windowOf(dialog, form, "lstChosen"));
    std::ofstream out(resultFile, std::ios::binary);
    const auto write = [&out](std::string_view step, std::string_view name, CountingListBox& list) {
        const CountingListBox::Counts counts = list.take();
        out << step << ' ' << name << ' ' << counts.refills << ' ' << counts.names << ' '
            << counts.drawn << ' ' << list.horizontalExtent() << ' ' << counts.others << '\n';
    };
    const auto writeBoth = [&](std::string_view step) {
        write(step, "lstFiles", files);
        write(step, "lstChosen", chosen);
    };
    form.lstFiles.setItems(namesOf(count));
    form.lstFiles.Remeasured();
    writeBoth("listed");
    moveEvery(form, 2);
    writeBoth("half");
    moveEvery(form, 1);
    writeBoth("all");
    form.cmdBack.Click();
    writeBoth("back");
}

// Of the child of that number, or of the window itself.
std::string nameOf(IAccessible& object, LONG child) {
    VARIANT id{};
    id.vt = VT_I4;
    id.lVal = child;
    BSTR name = nullptr;
    if (object.get_accName(id, &name) != S_OK) {
        return "none";
    }
    std::array<char, 200> text{};
    WideCharToMultiByte(CP_ACP, 0, name, -1, text.data(), static_cast<int>(text.size()), nullptr,
                        nullptr);
    SysFreeString(name);
    return text.data();
}

void printNames(HWND grid, const std::string& resultFile) {
    const ComUser com;
    std::ofstream out(resultFile, std::ios::binary);
    ComPointer<IAccessible> object;
    if (AccessibleObjectFromWindow(grid, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   object.receive()) != S_OK) {
        out << "no object\n";
        return;
    }
    LONG children = 0;
    object->get_accChildCount(&children);
    out << "children=" << children << '\n';
    for (const LONG child : {0, 1, 5, 8, 9, 28}) {
        out << child << '=' << nameOf(*object.get(), child) << '\n';
    }
    VARIANT focus{};
    object->get_accFocus(&focus);
    out << "focus=" << focus.lVal << '\n';
}

// What the system asks before it takes the window to a monitor of another resolution.
void printScaledSizes(HWND dialog, const std::string& resultFile) {
    std::ofstream out(resultFile, std::ios::binary);
    for (const int dpi : {96, 120, 144, 192}) {
        SIZE size{};
        const LRESULT answer = SendMessageW(dialog, WM_GETDPISCALEDSIZE, static_cast<WPARAM>(dpi),
                                            reinterpret_cast<LPARAM>(&size));
        out << dpi << '=' << answer << ' ' << size.cx << 'x' << size.cy << '\n';
    }
}

// About raises what no handler traps.
void runFailing(Win32MainWindow& window, const std::string& resultFile,
                const std::string& layoutFile) {
    const Win32Files files;
    frmControls form(files, "events.txt", layoutFile);
    std::ofstream out(resultFile, std::ios::binary);
    form.mnuAbout.Click = [] { throw RunTimeError(ErrorNumber::DeviceIO); };
    form.Unload = [&out] { out << "unloaded\n"; };
    try {
        window.run(form);
    } catch (const RunTimeError& error) {
        out << "raised=" << error.record().number << '\n';
    }
}

} // namespace

bool run(std::string_view what, const std::string& resultFile, const std::string& third) {
    const Win32Files files;
    Win32MainWindow window;
    if (what == "window") {
        frmControls form(files, resultFile, third);
        window.run(form);
    } else if (what == "lists") {
        frmControls form(files, "events.txt", "layout.txt");
        form.Resize = [&, counted = false]() mutable {
            if (!std::exchange(counted, true)) {
                countListMessages(form, resultFile, std::stoi(third));
                form.unload();
            }
        };
        window.run(form);
    } else if (what == "names") {
        frmControls form(files, "events.txt", third);
        form.mnuAbout.Click = [&] {
            printNames(windowOf(GetActiveWindow(), form, "grd"), resultFile);
        };
        window.run(form);
    } else if (what == "scaled") {
        frmControls form(files, "events.txt", third);
        form.mnuAbout.Click = [&] { printScaledSizes(GetActiveWindow(), resultFile); };
        window.run(form);
    } else if (what == "failing") {
        runFailing(window, resultFile, third);
    } else {
        return false;
    }
    return true;
}

} // namespace tarnwick::gallery
