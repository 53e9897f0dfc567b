// Where everything stands, in twips. The columns of controls line up across the groups; what is
// left over in height goes to the two lists, and in width to the right column: the window's size is
// fixed, but not how much of it the system's frame takes.

#include "definition/output_types.hpp"
#include "ui/forms/form.hpp"
#include "ui/main/frm_main.hpp"
#include "ui/main/output_rows.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

constexpr int margin = 120; // around the window's contents, and between groups
constexpr int inset = 120;  // between a group's line and what it holds
constexpr int gap = 120;    // between controls side by side
constexpr int fieldHeight = 315;
constexpr int labelHeight = 210;
constexpr int checkHeight = 255;
constexpr int belowLabel = 225; // from a label to its control
constexpr int browseWidth = 1095;
constexpr int buttonHeight = 375;

// The two columns of groups.
constexpr int leftColumn = margin;
constexpr int leftWidth = 6000;
constexpr int rightColumn = leftColumn + leftWidth + margin;

constexpr int topOfGroups = 120;
constexpr int languageHeight = 690;
constexpr int gridRowHeight = 285;

// With its heading row: every type shows at once.
constexpr int gridHeight(std::size_t types) {
    return (static_cast<int>(types) + 1) * gridRowHeight + 2 * Grid::borderWidth;
}

constexpr int mpGridHeight = gridHeight(mpOutputTypes.size());
constexpr int cnsGridHeight = gridHeight(cnsOutputTypes.size());
constexpr int aboveMPGrid = 990;
constexpr int groupsHeight = aboveMPGrid + mpGridHeight + inset;
constexpr int topOfCNS = topOfGroups + languageHeight + 90;
constexpr int heightOfCNS = topOfGroups + groupsHeight - topOfCNS;
constexpr int topOfCFG = topOfGroups + groupsHeight + margin;
constexpr int topOfInput = topOfCFG + fieldHeight + 90;
constexpr int inputWidth = 9900;

constexpr int leastStatusHeight = 315;
constexpr int statusPanel2 = 3000;
constexpr int statusPanel3 = 2400;

// Of the check box on a group's line.
constexpr int onLineLeft = 120;

constexpr int right(const Bounds& bounds) {
    return bounds.left + bounds.width;
}

Bounds beside(const Bounds& field, int width) {
    return {.left = right(field) + gap, .top = field.top, .width = width, .height = field.height};
}

Bounds labelAbove(const Bounds& control) {
    return {.left = control.left,
            .top = control.top - belowLabel,
            .width = control.width,
            .height = labelHeight};
}

// In the middle of the field's height.
Bounds labelBefore(const Bounds& field, int left, int height) {
    return {.left = left,
            .top = field.top + (field.height - height) / 2,
            .width = field.left - left - 60,
            .height = height};
}

void setColumns(Grid& grid) {
    constexpr int buildWidth = 550;
    constexpr int fileTypeWidth = 800;
    constexpr int extensionWidth = 820;
    constexpr int besideColumns = 135;
    grid.setColumnWidth(buildColumn, buildWidth);
    grid.setColumnWidth(fileTypeColumn, fileTypeWidth);
    grid.setColumnWidth(extensionColumn, extensionWidth);
    const int rest =
        grid.bounds().width - buildWidth - fileTypeWidth - extensionWidth - besideColumns;
    if (rest > 0) {
        grid.setColumnWidth(folderColumn, rest);
    }
}

} // namespace

void frmMain::Form_Resize() {
    if (windowState() != WindowState::Normal) {
        return;
    }
    resizeTo(mainWindow);
    layOut(content());
}

void frmMain::layOut(Size content) {
    fraLanguage.setBounds(
        {.left = leftColumn, .top = topOfGroups, .width = leftWidth, .height = languageHeight});
    cboLanguage.setBounds({.left = leftColumn + inset,
                           .top = topOfGroups + 270,
                           .width = 2400,
                           .height = fieldHeight});
    layOutCNS();
    layOutMP(content.width - margin);
    // The system may make it higher than asked.
    const int statusHeight = std::max(leastStatusHeight, StatusBar1.bounds().height);
    const int bottom = content.height - statusHeight - margin;
    layOutInput(bottom);
    layOutLists(bottom);
    layOutButtons(content.width - margin, bottom);
    layOutStatus(content, statusHeight);
    setColumns(grdCNS);
    setColumns(grdFiles);
}

void frmMain::layOutCNS() {
    const int left = leftColumn + inset;
    const int width = leftWidth - 2 * inset;
    fraCNS.setBounds(
        {.left = leftColumn, .top = topOfCNS, .width = leftWidth, .height = heightOfCNS});
    chkCNS.setBounds(
        {.left = leftColumn + onLineLeft, .top = topOfCNS, .width = 1800, .height = checkHeight});
    txtCNS.setBounds({.left = left, .top = topOfCNS + 525, .width = 3540, .height = fieldHeight});
    lblCNS.setBounds(labelAbove(txtCNS.bounds()));
    cmdCNS.setBounds(beside(txtCNS.bounds(), browseWidth));
    txtCNSExt.setBounds(beside(cmdCNS.bounds(), left + width - right(cmdCNS.bounds()) - gap));
    lblCNSExt.setBounds(labelAbove(txtCNSExt.bounds()));
    constexpr int aliasesLeft = 1500;
    txtAliases.setBounds({.left = left + aliasesLeft,
                          .top = topOfCNS + 975,
                          .width = right(txtCNS.bounds()) - left - aliasesLeft,
                          .height = fieldHeight});
    chkAliases.setBounds(labelBefore(txtAliases.bounds(), left, checkHeight));
    cmdAliases.setBounds(beside(txtAliases.bounds(), browseWidth));
    const int gridTop = topOfCNS + heightOfCNS - inset - cnsGridHeight;
    grdCNS.setBounds({.left = left, .top = gridTop, .width = width, .height = cnsGridHeight});
    grdCNS.setRowHeight(gridRowHeight);
    lblCNSFiles.setBounds(labelAbove(grdCNS.bounds()));
}

void frmMain::layOutMP(int rightEdge) {
    const int left = rightColumn + inset;
    const int groupWidth = rightEdge - rightColumn;
    const int width = groupWidth - 2 * inset;
    fraMP.setBounds(
        {.left = rightColumn, .top = topOfGroups, .width = groupWidth, .height = groupsHeight});
    chkMP.setBounds({.left = rightColumn + onLineLeft,
                     .top = topOfGroups,
                     .width = 645,
                     .height = checkHeight});
    constexpr int allFoldersWidth = 1515;
    cmdOutputFolder.setBounds({.left = left + width - allFoldersWidth,
                               .top = topOfGroups + 330,
                               .width = allFoldersWidth,
                               .height = fieldHeight});
    chkfixdoc.setBounds(labelBefore(cmdOutputFolder.bounds(), left, checkHeight));
    const int gridTop = topOfGroups + aboveMPGrid;
    grdFiles.setBounds({.left = left, .top = gridTop, .width = width, .height = mpGridHeight});
    grdFiles.setRowHeight(gridRowHeight);
    lblMPFiles.setBounds(labelAbove(grdFiles.bounds()));
}

void frmMain::layOutInput(int bottom) {
    const int left = leftColumn + inset;
    constexpr int fieldLeft = leftColumn + inset + 2100;
    const int browseLeft = leftColumn + inputWidth - inset - browseWidth;
    const int fieldWidth = browseLeft - gap - fieldLeft;
    // A configuration file is for both tools, and so beside no group.
    txtCFG.setBounds(
        {.left = fieldLeft, .top = topOfCFG, .width = fieldWidth, .height = fieldHeight});
    chkCFG.setBounds(labelBefore(txtCFG.bounds(), left, checkHeight));
    cmdCFG.setBounds(beside(txtCFG.bounds(), browseWidth));

    fraInput.setBounds({.left = leftColumn,
                        .top = topOfInput,
                        .width = inputWidth,
                        .height = bottom - topOfInput});
    txtInput.setBounds(
        {.left = fieldLeft, .top = topOfInput + 285, .width = fieldWidth, .height = fieldHeight});
    lblMrSid.setBounds(labelBefore(txtInput.bounds(), left, labelHeight));
    cmdInput.setBounds(beside(txtInput.bounds(), browseWidth));
    txtInExt.setBounds(
        {.left = fieldLeft, .top = topOfInput + 690, .width = fieldWidth, .height = fieldHeight});
    lblInExt.setBounds(labelBefore(txtInExt.bounds(), left, labelHeight));
}

void frmMain::layOutLists(int bottom) {
    const int left = leftColumn + inset;
    constexpr int moveWidth = 720;
    constexpr int moveHeight = 345;
    constexpr int movePitch = 420;
    constexpr int leastBetween = 15;
    const int listTop = topOfInput + 1350;
    const int listWidth = (inputWidth - 2 * inset - moveWidth - 2 * gap) / 2;
    const int listHeight = bottom - inset - listTop;
    lstAvailable.setBounds(
        {.left = left, .top = listTop, .width = listWidth, .height = listHeight});
    lblAvailable.setBounds(labelAbove(lstAvailable.bounds()));
    const int moves = static_cast<int>(cmdSelectFiles.size());
    // A large text size makes the system's title and menu higher: then the buttons move together,
    // and at last become lower.
    const int pitch = std::clamp((listHeight + leastBetween) / moves, leastBetween, movePitch);
    const int height = std::min(moveHeight, pitch - leastBetween);
    int moveTop = listTop + std::max(0, (listHeight - (moves - 1) * pitch - height) / 2);
    for (Button& button : cmdSelectFiles) {
        button.setBounds(
            {.left = left + listWidth + gap, .top = moveTop, .width = moveWidth, .height = height});
        moveTop += pitch;
    }
    lstSelected.setBounds({.left = left + listWidth + gap + moveWidth + gap,
                           .top = listTop,
                           .width = listWidth,
                           .height = listHeight});
    lblSelected.setBounds(labelAbove(lstSelected.bounds()));
}

void frmMain::layOutButtons(int rightEdge, int bottom) {
    const int buttonsLeft = leftColumn + inputWidth + margin;
    int top = bottom - 3 * buttonHeight - 2 * gap;
    for (Button* const button : {&cmdCreateBatFile, &cmdOK, &cmdCancel}) {
        button->setBounds({.left = buttonsLeft,
                           .top = top,
                           .width = rightEdge - buttonsLeft,
                           .height = buttonHeight});
        top += buttonHeight + gap;
    }
}

void frmMain::layOutStatus(Size content, int statusHeight) {
    StatusBar1.setBounds({.left = 0,
                          .top = content.height - statusHeight,
                          .width = content.width,
                          .height = statusHeight});
    StatusBar1.setPanelWidth(2, statusPanel2);
    StatusBar1.setPanelWidth(3, statusPanel3);
    constexpr int besidePanels = 280;
    const int first = mainWindow.width - statusPanel2 - statusPanel3 - besidePanels;
    if (first >= 0) {
        StatusBar1.setPanelWidth(1, first);
    }
    ProgressBar1.setBounds({.left = StatusBar1.panelLeft(3) + 15,
                            .top = StatusBar1.bounds().top + 30,
                            .width = StatusBar1.panelWidth(3),
                            .height = StatusBar1.bounds().height - 45});
    linTop.setBounds({.left = 0, .top = 0, .width = content.width, .height = 15});
    linTop2.setBounds({.left = 0, .top = 15, .width = content.width, .height = 15});
}

} // namespace tarnwick
