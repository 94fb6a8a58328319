// The number field on the screen: a line edit that asks the rules of CNumericEdit before each change.
#pragma once

#include <QLineEdit>
#include <functional>
#include <string>

#include "view/numeric_edit.h"

class QMenu;

namespace pyxis::ui {

class NumericEditField : public QLineEdit {
 public:
  NumericEditField(std::size_t maxLength, QWidget* parent);

  // Shows a text of the program's; the caret stays where it can.
  void Show(const std::string& text);
  // Called with the new text whenever the operator changed it.
  std::function<void(const std::string&)> TextEdited = [](const std::string&) {};
  // The context menu as it stands now; the caller deletes it.
  QMenu* MakeMenu();

  std::uint32_t GetValue() const { return Now().GetValue(); }
  void SetValue(std::uint32_t value, bool hex) { Show(CNumericEdit::Format(value, hex)); }
  void SetHexColours(Colour text, Colour back);
  void SetDecimalColours(Colour text, Colour back);
  void ConvertRadix();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  CNumericEdit Now() const;
  bool EditByKey(const QKeyEvent& event);
  void Type(const QString& characters);
  void Paste();
  void OnCommand(CNumericEdit::Command command);
  void OnTextChanged();
  void SyncColours();

  const std::size_t maxLength_;
  NumericColours colours_;
  bool HexMode = false;
  bool showing_ = false;
};

}  // namespace pyxis::ui
