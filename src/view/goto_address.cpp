#include "view/goto_address.h"

#include "platform/hex_digits.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "view/hex_view.h"

namespace pyxis {

void CGotoAddressDlg::OnChange(const std::string& newText) {
  text = newText.substr(0, kMaxDigits);
  address = ParseHexDigits(text);
}

void OnGotoAddress(CMiniHexEditView& view) {
  if (!view.Live()) return;
  view.ClearSelection();
  CGotoAddressDlg dialog;
  if (TheMachine().op->RunDialog(dialog) == DialogEnd::Ok) view.GoTo(dialog.address);
}

}  // namespace pyxis
