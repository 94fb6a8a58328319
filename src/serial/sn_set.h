// The dialog Serial Number Set and the making of serial.txt.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace pyxis {

class CSnSetDlg {
 public:
  CSnSetDlg(bool snFromIcSelection, bool exhvIsp, bool isp);
  void OnInitDialog();  // fields from SnRecord

  // Field texts as the window shows them; the On… functions are called at each keystroke with the new text.
  std::string lengthText, addressText, startText, amountText;
  void OnLengthChange(const std::string& text);
  void OnAddressChange(const std::string& text);
  void OnStartChange(const std::string& text);
  void OnAmountChange(const std::string& text);
  void OnDirection(int direction);
  void OnLoad();    // the button "Load"; `ended` tells whether the dialog closed as OK
  bool ended = false;
  std::function<void()> Changed = [] {};

 private:
  bool snFromIcSelection_, exhvIsp_, isp_;
  bool LoadSnSetup();      // true when the dialog closes
  bool PlaceIsGood() const;  // tells the operator when it isn't
  bool WriteSerialFile() const;
};

}  // namespace pyxis
