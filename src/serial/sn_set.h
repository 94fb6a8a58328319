// The dialog Serial Number Set and the making of serial.txt.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "intake/package_files.h"
#include "shell/ground/outcome.h"
#include "shell/ground/selection_guard.h"

namespace pyxis {

class CSnSetDlg {
 public:
  // What the fields let in, in characters.
  static constexpr std::size_t kLengthLimit = 2;
  static constexpr std::size_t kAddressLimit = 4;
  static constexpr std::size_t kNumberLimit = 2 * kSerialBytes;  // of the start serial and the amount

  CSnSetDlg(bool snFromIcSelection, bool exhvIsp, bool isp);
  void OnInitDialog();  // fields from SnRecord

  // Field texts as the window shows them; the On… functions are called at each keystroke with the new text.
  // Every change goes into SnRecord at once, so Cancel takes nothing back.
  std::string lengthText, addressText, startText, amountText;
  int direction = 0;                             // the radio button: 0 "Low Byte", 1 "Hight Byte"
  bool OnLengthChange(const std::string& text);  // false, with the operator told, for no length from 1 to 16
  void OnAddressChange(const std::string& text);
  bool OnStartChange(const std::string& text);  // false: longer than the length, so the field goes back
  void OnAmountChange(const std::string& text);
  void OnDirection(int button);
  // The button "Load"; `ended` tells whether the dialog closed as OK. Good, with OtherPlace when the operator was
  // warned; refused: OtherChip, OutOfRange, NotWritable; failed: NotReadable, when the template or serial.txt didn't
  // open, and the dialog closes all the same.
  Outcome OnLoad();
  bool ended = false;
  bool written = false;  // this run stands in serial.txt
  std::function<void()> Changed = [] {};

 private:
  enum class Written { Good, NotOpened, Broken };
  Outcome LoadSnSetup();
  static Outcome CheckPlace();  // tells the operator when it isn't good
  Written WriteSerialFile() const;
  bool snFromIcSelection_, exhvIsp_, isp_;
  SelectionGuard guard_;
};

}  // namespace pyxis
