#include "ui/main/output_rows.hpp"

#include "ui/forms/cell.hpp"

#include <array>
#include <cstddef>
#include <string_view>

namespace tarnwick {
namespace {

constexpr std::array<std::string_view, 4> headings{"Build?", "File Type", "Extension",
                                                   "Output Folder"};
constexpr Rgb red{.red = 255, .green = 0, .blue = 0};

} // namespace

void showOutputs(Grid& grid, std::span<const OutputDefinition> outputs) {
    grid.setRows(static_cast<int>(outputs.size()) + 1);
    for (std::size_t column = 0; column < headings.size(); ++column) {
        grid.setText(0, static_cast<int>(column), headings.at(column));
    }
    int row = 0;
    for (const OutputDefinition& output : outputs) {
        ++row;
        grid.setText(row, fileTypeColumn, output.sFileType);
        grid.setText(row, extensionColumn, output.sExtension);
        grid.setText(row, folderColumn, output.sOutputFolder);
        setToBuild(grid, row, output.bBuild);
    }
    // A cell of data is always the current one: keys and clicks then work on what can be edited.
    if (row > 0) {
        grid.setCurrent({.row = 1, .column = 0});
    }
}

OutputDefinition outputOf(const Grid& grid, int row) {
    return {.bBuild = isToBuild(grid, row),
            .sFileType = grid.text(row, fileTypeColumn),
            .sExtension = grid.text(row, extensionColumn),
            .sOutputFolder = grid.text(row, folderColumn)};
}

void takeOutputs(const Grid& grid, std::span<OutputDefinition> outputs) {
    int row = 0;
    for (OutputDefinition& output : outputs) {
        output = outputOf(grid, ++row);
    }
}

bool isToBuild(const Grid& grid, int row) {
    return grid.text(row, buildColumn) == tickedGlyph;
}

void setToBuild(Grid& grid, int row, bool build) {
    grid.setCell(row, buildColumn,
                 {.text = build ? tickedGlyph : emptyGlyph,
                  .fontName = symbolFont,
                  .alignment = Alignment::Centre,
                  .fore = build ? Colour(red) : Colour(SystemColour::ButtonText)});
    const SystemColour back = build ? SystemColour::Window : SystemColour::ButtonFace;
    grid.setBack(row, extensionColumn, back);
    grid.setBack(row, folderColumn, back);
}

bool isEditable(const Grid& grid, int row, int column) {
    return row >= 1 && (column == extensionColumn || column == folderColumn) &&
           grid.cell(row, column).back == Colour(SystemColour::Window);
}

} // namespace tarnwick
