// The dialog Option Select 1, the only place where the operator makes the protection, mode and clock choices.
#pragma once

#include <functional>

#include "catalogue/chip_catalogue.h"

namespace pyxis {

class COptionSelectDlg {
 public:
  enum Pair { Protection = 0, Mode = 1, Clock = 2 };
  int choice[3] = {0, 0, 0};  // 0 first button, 1 second, -1 none set at the start; valid after OK
  // Whether the first button was the last one clicked; valid after Cancel too.
  bool flag[3] = {true, true, true};

  // The button that shows as set: 0, 1 or -1.
  int Shown(Pair pair) const { return shown_[pair]; }
  void OnInitDialog();  // buttons from the choices
  void Click(Pair pair, int button);
  void OnOk();  // choices from the buttons
  std::function<void()> Changed = [] {};

 private:
  int shown_[3] = {0, 0, 0};
};

// OptionValue without a choice of the operator's.
inline constexpr std::uint32_t kDefaultOptionValue = 0x60;

// The options step of Load File: for an IC with the dialog runs it, takes an OK into OptionValue, and shows the state
// of the buttons on the fuse panel either way.
void ChooseOptions(const ChipEntry& row);

}  // namespace pyxis
