// The fuse panel, the dialog Option Select 1 and Set Protect.
#pragma once

#include <cstdint>
#include <functional>

namespace pyxis {

enum class PanelKind { None, ProtectionOnly, Full };

PanelKind PanelKindOf(std::uint32_t chipCode);

// Shows the pairs of the selected IC's panel kind, hides the others, unmarks what it shows.
void ResetFusePanel();
// For each pair: -1 hides it, 0 marks the second box, 1 the first.
void SetFusePanel(int protection, int mode, int clock);
// All six boxes hidden, as at start-up.
void HideFusePanel();
// The values stored in WriterInfoBlock, for the ICs that keep them there.
void ShowFuseBitsOfBlock();

class COptionSelectDlg {
 public:
  enum Pair { Protection = 0, Mode = 1, Clock = 2 };
  int choice[3] = {0, 0, 0};  // 0 first button, 1 second, -1 none set at the start; valid after OK
  int flag[3] = {1, 1, 1};    // 1 while the first button was the last one clicked; valid after Cancel too

  // The button that shows as set: 0, 1 or -1.
  int Shown(Pair pair) const { return shown_[pair]; }
  void OnInitDialog();          // buttons from the choices
  void Click(Pair pair, int button);
  void OnOk();                  // choices from the buttons
  std::function<void()> Changed = [] {};

 private:
  int shown_[3] = {0, 0, 0};
};

// The menu command Set Protect.
void OnSetProtect();

}  // namespace pyxis
