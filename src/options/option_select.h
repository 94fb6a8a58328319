// The dialog Option Select 1, the only place where the operator makes the protection, mode and clock choices.
#pragma once

#include <functional>

#include "catalogue/chip_catalogue.h"

namespace pyxis {

class COptionSelectDlg {
 public:
  enum Pair { Protection = 0, Mode = 1, Clock = 2 };
  // The first buttons: not protected, fast mode, 32 kHz disabled.
  enum Button { kNoButton = -1, kFirstButton = 0, kSecondButton = 1 };
  int choice[3] = {kFirstButton, kFirstButton, kFirstButton};  // kNoButton: none set at the start; valid after OK
  // Whether the first button was the last one clicked; valid after Cancel too.
  bool flag[3] = {true, true, true};

  // The button that shows as set.
  int Shown(Pair pair) const { return shown_[pair]; }
  void OnInitDialog();  // buttons from the choices
  void Click(Pair pair, int button);
  void OnOk();  // choices from the buttons
  std::function<void()> Changed = [] {};

  // What stands at the buttons, with the mark of the letter that the keyboard reaches them by.
  static constexpr const char* kCaptions[3][2] = {
      {"&Unprotect", "&Protect"}, {"&Fast mode", "&Dual mode"}, {"&32KHz disable", "32KHz &enable"}};

 private:
  int shown_[3] = {kFirstButton, kFirstButton, kFirstButton};
};

// OptionValue without a choice of the operator's.
inline constexpr std::uint32_t kDefaultOptionValue = 0x60;

// The options step of Load File: for an IC with the dialog runs it, takes an OK into OptionValue, and shows the state
// of the buttons on the fuse panel either way.
void ChooseOptions(const ChipEntry& row);

}  // namespace pyxis
