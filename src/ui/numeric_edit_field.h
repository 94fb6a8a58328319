// The number field on the screen: CNumericEdit edits, the line edit shows it and moves the caret.
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
  CNumericEdit& Model() { return model_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void TakeSelection();
  void Sync();
  void SyncColours();
  bool EditByKey(const QKeyEvent& event);

  CNumericEdit model_;
  bool syncing_ = false;
  bool showing_ = false;
};

}  // namespace pyxis::ui
