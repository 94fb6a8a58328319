// The dialog Smart Option: for each row of the IC's option file a caption, which the window paints, and a disabled list
// that shows the alternative in force. Nothing in it can be changed.
#pragma once

#include <vector>

#include "options/option_window.h"

namespace pyxis {

class CSmartOptionDlg {
 public:
  // The window's size before it is placed, in dialog units.
  static constexpr int kWidth = 212, kHeight = 166;

  struct Cells {
    OptionRect caption;
    OptionRect list;
    OptionListHandle handle = 0;
  };
  std::vector<Cells> rows;

  // Once, by the window that shows the dialog, when it can measure text: the choices in force, the lists, the title.
  void OnInitDialog(OptionWindow& window);
  void BuildOptionControls(OptionWindow& window);
  // On every paint of the window.
  void PaintOptionLabels(OptionWindow& window) const;
};

// The main window's button: reads the selected IC's file anew and shows it.
void OnSmartOption();

}  // namespace pyxis
