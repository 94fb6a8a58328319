// The IC that the program works on: the name that is shown and looked up, and its figure.
#pragma once

#include <string>

namespace pyxis {

// SelectedChip, ChipNameText, the Chip Name field and the title.
void ShowChipName(const std::string& name);

// Looks a label up and takes the row's Smart Option flag; a label that isn't found changes nothing.
void TakeCatalogueRow(const std::string& label);

// The figure of a label or a chip name, by the two in-system programming flags; a missing file leaves none.
void ShowPinFigure(const std::string& label);
void ClearPinFigure();

}  // namespace pyxis
