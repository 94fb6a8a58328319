// The dialog Go to address.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace pyxis {

class CMiniHexEditView;

class CGotoAddressDlg {
 public:
  static constexpr std::size_t kMaxDigits = 5;
  std::string text = "00000";
  std::uint32_t address = 0;
  void OnChange(const std::string& newText);  // at each change of the field
};

// Ctrl+G: runs the dialog, and on OK shows the address at the top of the view.
void OnGotoAddress(CMiniHexEditView& view);

}  // namespace pyxis
