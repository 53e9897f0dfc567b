#pragma once

#include "ui/forms/check_box.hpp"
#include "ui/forms/combo_box.hpp"
#include "ui/forms/drive_list.hpp"
#include "ui/forms/folder_list.hpp"
#include "ui/forms/form.hpp"
#include "ui/forms/grid.hpp"
#include "ui/forms/indicators.hpp"
#include "ui/forms/keys.hpp"
#include "ui/forms/list_box.hpp"
#include "ui/forms/status_bar.hpp"
#include "ui/forms/text_box.hpp"

#include <windows.h>

#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick::gallery {

// One of every kind of control. Notes every event in the file `resultFile`, and where everything is
// in the file `layoutFile`.
class frmControls final : public Form {
  public:
    frmControls(const Files& files, const std::string& resultFile, std::string layoutFile)
        : Form("frmControls", "Controls"),
          files_(files),
          result_(resultFile, std::ios::binary),
          layoutFile_(std::move(layoutFile)) {
        fillMenu();
        connectEvents();
        fillGrid();
    }

  private:
    const Files& files_;
    std::ofstream result_;
    std::string layoutFile_;

  public:
    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuNew{mnuFile, "mnuNew", "&New"};
    MenuItem mnuBar1{mnuFile, "mnuBar1", "-"};
    MenuItem mnuExit{mnuFile, "mnuExit", "E&xit"};
    MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
    MenuItem mnuAbout{mnuHelp, "mnuAbout", "&About..."};
    Line linTop{*this, "linTop"};
    Line linTop2{*this, "linTop2"};
    Frame fraFields{*this, "fraFields", "Fields"};
    Label lblLanguage{*this, "lblLanguage", "&Language:"};
    ComboBox cboLanguage{*this, "cboLanguage", {"English", "Spanish", "French"}};
    Label lblExt{*this, "lblExt", "&Extension:"};
    TextBox txtExt{*this, "txtExt"};
    CheckBox chkGrid{*this, "chkGrid", "Grid ena&bled"};
    Button cmdBusy{*this, "cmdBusy", "B&usy"};
    Label lblFiles{*this, "lblFiles", "&Available files:"};
    ListBox lstFiles{*this, "lstFiles"};
    Button cmdMove{*this, "cmdMove", ">"};
    Button cmdBack{*this, "cmdBack", "<<"};
    Label lblChosen{*this, "lblChosen", "&Selected files:"};
    ListBox lstChosen{*this, "lstChosen"};
    Label lblGrid{*this, "lblGrid", "Output &definition:"};
    TextBox txtEdit{*this, "txtEdit"};
    Button cmdEdit{*this, "cmdEdit", "..."};
    Grid grd{*this, "grd"};
    Label lblDrive{*this, "lblDrive", "D&rive:"};
    DriveList drvPath{*this, "drvPath", files_};
    Label lblFolder{*this, "lblFolder", "F&older:"};
    FolderList DirPath{*this, "DirPath", files_};
    Button cmdAsk{*this, "cmdAsk", "As&k..."};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    StatusBar StatusBar1{*this, "StatusBar1", 3};

  private:
    void note(const std::string& event) { result_ << event << '\n' << std::flush; }

    void fillMenu() {
        mnuNew.Click = [this] { note("mnuNew_Click"); };
        mnuExit.Click = [this] { unload(); };
    }

    void connectEvents() {
        Load = [this] { Form_Load(); };
        Resize = [this] { Form_Resize(); };
        Unload = [this] { note("Form_Unload"); };
        for (Control* const control : controls()) {
            control->GotFocus = [this, control] { note(control->name() + "_GotFocus"); };
            control->LostFocus = [this, control] { note(control->name() + "_LostFocus"); };
        }
        cboLanguage.Change = [this] { note("cboLanguage_Change " + cboLanguage.text()); };
        cboLanguage.Click = [this] { note("cboLanguage_Click " + cboLanguage.text()); };
        txtExt.Change = [this] { note("txtExt_Change " + txtExt.text()); };
        txtExt.KeyUp = [this](int code) { note("txtExt_KeyUp " + std::to_string(code)); };
        chkGrid.Click = [this] {
            note("chkGrid_Click");
            grd.setEnabled(chkGrid.ticked());
        };
        cmdBusy.Click = [this] {
            const bool busy = mousePointer() == MousePointer::Busy;
            setMousePointer(busy ? MousePointer::Default : MousePointer::Busy);
            ProgressBar1.setValue(busy ? 0 : 40);
            StatusBar1.setPanelText(1, busy ? "" : "Busy");
        };
        cmdAsk.Click = [this] {
            MessageBoxA(GetActiveWindow(), "Go on?", "Question", MB_YESNO);
            note("cmdAsk_Click");
        };
        connectLists();
        connectGrid();
    }

    void connectLists() {
        for (ListBox* const list : {&lstFiles, &lstChosen}) {
            list->Click = [this, list] {
                std::string selected;
                for (std::size_t i = 0; i < list->items().size(); ++i) {
                    selected += list->selection()[i] ? ' ' + list->items()[i] : "";
                }
                note(list->name() + "_Click" + selected);
            };
            list->Remeasured = [list] { list->setHorizontalExtent(list->widestItem("  ")); };
        }
        const auto move = [this](ListBox& to, std::vector<std::string> names) {
            to.add(std::move(names));
            lstFiles.Remeasured();
            lstChosen.Remeasured();
        };
        lstFiles.DblClick = [this] { note("lstFiles_DblClick"); };
        cmdMove.Click = [this, move] { move(lstChosen, lstFiles.takeSelected()); };
        cmdBack.Click = [this, move] { move(lstFiles, lstChosen.takeAll()); };
        drvPath.Change = [this] { note("drvPath_Change " + drvPath.drive()); };
        DirPath.Change = [this] { note("DirPath_Change " + DirPath.path()); };
    }

    void connectGrid() {
        grd.Click = [this] {
            note("grd_Click " + std::to_string(grd.row()) + ' ' + std::to_string(grd.column()));
            openEditor();
        };
        grd.MouseDown = [this](int /*x*/, int y) {
            note(y < grd.rowHeight() ? "grd_MouseDown header" : "grd_MouseDown");
        };
        grd.KeyPress = [this](int code) {
            note("grd_KeyPress " + std::to_string(code));
            openEditor();
        };
        grd.KeyDown = [this](int code) { moveOn(code); };
        grd.LeaveCell = [this] { commit(); };
        txtEdit.KeyDown = [this](int code) {
            if (code == Key::escape) {
                closeEditor();
            } else {
                moveOn(code);
            }
        };
        txtEdit.passFocusTo(grd);
        cmdEdit.passFocusTo(grd);
        cmdEdit.setAccessibleName("Choose the output folder");
        txtEdit.setAccessibleName("Value of the cell");
        txtEdit.setLeavesKeysToGrid(true);
        txtEdit.setVisible(false);
        cmdEdit.setVisible(false);
    }

    void moveOn(int code) {
        if (code == Key::enter && grd.column() + 1 < grd.columns()) {
            grd.setColumn(grd.column() + 1);
            openEditor();
        }
    }

    void openEditor() {
        if (grd.column() < 2) {
            return;
        }
        constexpr int offset = 45;
        constexpr int buttonWidth = 350;
        const Bounds& outer = grd.bounds();
        const Bounds cell = grd.cellBounds();
        const int room = cell.width - (grd.column() == 3 ? buttonWidth + 40 : offset);
        cmdEdit.setBounds({.left = outer.left + cell.left + cell.width - buttonWidth,
                           .top = outer.top + cell.top,
                           .width = buttonWidth,
                           .height = cell.height - 15});
        cmdEdit.setVisible(grd.column() == 3);
        txtEdit.setBounds({.left = outer.left + cell.left + offset,
                           .top = outer.top + cell.top + offset,
                           .width = room,
                           .height = cell.height - offset});
        txtEdit.setText(grd.text(grd.row(), grd.column()));
        txtEdit.selectAll();
        txtEdit.setVisible(true);
        txtEdit.setFocus();
    }

    void commit() {
        if (txtEdit.visible()) {
            grd.setText(grd.row(), grd.column(), txtEdit.text());
            note("commit " + txtEdit.text());
            closeEditor();
        }
    }

    void closeEditor() {
        txtEdit.setVisible(false);
        cmdEdit.setVisible(false);
    }

    void fillGrid() {
        const std::vector<std::string> headers{"Build?", "File Type", "Extension", "Output Folder"};
        const std::vector<std::string> types{"Error",     "Text", "Leftovers",
                                             "Info_file", "Sgml", "Xml"};
        grd.setRows(static_cast<int>(types.size()) + 1);
        grd.setAccessibleName("Output definition");
        grd.setTitleColumn(1);
        for (int column = 0; column < grd.columns(); ++column) {
            grd.setText(0, column, headers[static_cast<std::size_t>(column)]);
        }
        for (int row = 1; row < grd.rows(); ++row) {
            const std::string& type = types[static_cast<std::size_t>(row - 1)];
            const bool ticked = row % 2 == 1;
            const Colour back = ticked ? SystemColour::Window : SystemColour::ButtonFace;
            grd.setCell(row, 0,
                        {.text = ticked ? tickedGlyph : emptyGlyph,
                         .fontName = symbolFont,
                         .alignment = Alignment::Centre,
                         .fore = ticked ? Colour(Rgb{.red = 255}) : SystemColour::ButtonText});
            grd.setText(row, 1, type);
            grd.setCell(row, 2, {.text = '.' + type, .fontName = "", .back = back});
            grd.setCell(row, 3, {.text = "C:\\records\\out", .fontName = "", .back = back});
        }
    }

    void Form_Load() {
        centreOnScreen();
        chkGrid.setValue(1);
        cboLanguage.setText("English");
        txtExt.setHint("such as *.met;*.txt");
        for (const int number : {7, 3, 11, 5}) {
            lstFiles.add({"record" + std::to_string(100 + number) + ".met"});
        }
        lstFiles.add({"a record with a very long name that does not fit.met"});
        StatusBar1.setPanelText(2, "TARNWICK.ini");
    }

    void Form_Resize() {
        if (windowState() != WindowState::Normal) {
            return;
        }
        resizeTo({.width = 12735, .height = 8460});
        linTop.setBounds({.left = 0, .top = 0, .width = content().width, .height = 15});
        linTop2.setBounds({.left = 0, .top = 15, .width = content().width, .height = 15});
        StatusBar1.setPanelWidth(2, 2500);
        StatusBar1.setPanelWidth(3, 2500);
        StatusBar1.setPanelWidth(1, window().width - 5000 - 280);
        ProgressBar1.setBounds({.left = StatusBar1.panelLeft(3) + 15,
                                .top = StatusBar1.bounds().top + 30,
                                .width = StatusBar1.panelWidth(3),
                                .height = StatusBar1.bounds().height - 45});
        const int rest = grd.bounds().width - 550 - 800 - 820 - 135;
        int column = 0;
        for (const int width : {550, 800, 820, rest}) {
            grd.setColumnWidth(column++, width);
        }
        lstFiles.Remeasured();
        writeLayout();
    }

    void writeLayout() {
        // The menu bar lies above the content.
        const int menu = toTwips(GetSystemMetrics(SM_CYMENU), static_cast<int>(GetDpiForSystem()));
        std::ofstream out(layoutFile_, std::ios::binary);
        const auto write = [&](const std::string& name, const Bounds& bounds) {
            out << name << ' ' << bounds.left + bounds.width / 2 << ' '
                << bounds.top + bounds.height / 2 + menu << '\n';
        };
        for (const Control* const control : controls()) {
            write(control->name(), control->bounds());
        }
        for (int row = 0; row < grd.rows(); ++row) {
            for (int column = 0; column < grd.columns(); ++column) {
                Bounds cell = grd.cellBounds(row, column);
                cell.left += grd.bounds().left;
                cell.top += grd.bounds().top;
                write("cell" + std::to_string(row) + std::to_string(column), cell);
            }
        }
        Bounds first = lstFiles.bounds();
        for (const int item : {0, 1, 2, 3}) {
            write("item" + std::to_string(item), {.left = first.left + 300,
                                                  .top = first.top + item * 225 + 60,
                                                  .width = 100,
                                                  .height = 150});
        }
        out << "window " << window().width << ' ' << window().height << '\n';
    }
};

} // namespace tarnwick::gallery
