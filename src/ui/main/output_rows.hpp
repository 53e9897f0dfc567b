#pragma once

#include "definition/batch_definition.hpp"
#include "ui/forms/grid.hpp"

#include <span>

namespace tarnwick {

// The columns of an output definition grid.
enum OutputColumn : int { buildColumn, fileTypeColumn, extensionColumn, folderColumn };

// How output definitions stand in a grid. A row that is to be built has a red tick and white cells
// to edit; any other has an empty box and grey cells. Box and colours are only set together, here.

// The heading row, and below it one row for each definition. The current cell is the first.
void showOutputs(Grid& grid, std::span<const OutputDefinition> outputs);

[[nodiscard]] OutputDefinition outputOf(const Grid& grid, int row);

// Reads the rows back; there are as many as definitions.
void takeOutputs(const Grid& grid, std::span<OutputDefinition> outputs);

[[nodiscard]] bool isToBuild(const Grid& grid, int row);
void setToBuild(Grid& grid, int row, bool build);

// Whether the cell can be edited: extension and folder of a row that is to be built.
[[nodiscard]] bool isEditable(const Grid& grid, int row, int column);

} // namespace tarnwick
