#include "ui/numeric_edit_field.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>

#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

constexpr int kFirstCharacter = 32;
constexpr std::size_t kMargin = 2;  // characters

QColor Of(const Colour& colour) { return {colour.red, colour.green, colour.blue}; }

// Keys that change nothing: the line edit's own.
bool MovesCaret(const QKeyEvent& event) {
  for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End})
    if (event.key() == key) return true;
  return event.matches(QKeySequence::SelectAll);
}

}  // namespace

NumericEditField::NumericEditField(std::size_t maxLength, QWidget* parent) : QLineEdit(parent) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setMinimumWidth(static_cast<int>(maxLength + kMargin) * fontMetrics().horizontalAdvance(QLatin1Char('0')));
  setAcceptDrops(false);
  setDragEnabled(false);
  model_.maxLength = maxLength;
  model_.Changed = [this] { Sync(); };
  model_.TextChanged = [this] {
    if (!showing_) TextEdited(model_.Text());
  };
  // Whatever else reaches the line edit, such as an accessibility tool, comes not past the model.
  connect(this, &QLineEdit::textChanged, this, [this] { Sync(); });
  SyncColours();
}

void NumericEditField::Show(const std::string& text) {
  if (text == model_.Text()) return;
  const std::size_t caret = std::min(model_.End(), text.size());
  showing_ = true;
  model_.SetText(text);
  model_.Select(caret, caret);
  showing_ = false;
}

void NumericEditField::TakeSelection() {
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  const int end = hasSelectedText() ? selectionEnd() : cursorPosition();
  syncing_ = true;  // it stands so already
  model_.Select(static_cast<std::size_t>(start), static_cast<std::size_t>(end));
  syncing_ = false;
}

void NumericEditField::Sync() {
  if (syncing_) return;
  syncing_ = true;
  if (const QString shown = FromText(model_.Text()); text() != shown) setText(shown);
  const int start = static_cast<int>(model_.Start()), end = static_cast<int>(model_.End());
  if (start == end) {
    setCursorPosition(start);
  } else {
    setSelection(start, end - start);
  }
  SyncColours();
  syncing_ = false;
}

void NumericEditField::SyncColours() {
  QPalette colours = palette();
  colours.setColor(QPalette::Text, Of(model_.HexMode ? model_.HexTextColour : model_.DecimalTextColour));
  colours.setColor(QPalette::Base, Of(model_.HexMode ? model_.HexBackColour : model_.DecimalBackColour));
  if (colours != palette()) setPalette(colours);
}

// False for a key that the model doesn't know.
bool NumericEditField::EditByKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) return model_.CopyKey(), true;
  if (event.matches(QKeySequence::Cut)) return model_.CutKey(), true;
  if (event.matches(QKeySequence::Paste)) return model_.PasteKey(), true;
  if (event.matches(QKeySequence::Undo)) return model_.UndoKey(), true;
  if (event.key() == Qt::Key_Backspace) return model_.Backspace(), true;
  if (event.key() == Qt::Key_Delete) return model_.DeleteKey(), true;
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
  const QString typed = event.text();
  if (typed.isEmpty() || typed[0].unicode() < kFirstCharacter) return false;
  for (const char32_t character : typed.toStdU32String()) model_.TypeCharacter(character);
  return true;
}

void NumericEditField::keyPressEvent(QKeyEvent* event) {
  if (MovesCaret(*event)) return QLineEdit::keyPressEvent(event);
  TakeSelection();
  event->setAccepted(EditByKey(*event));
}

void NumericEditField::inputMethodEvent(QInputMethodEvent* event) {
  TakeSelection();
  for (const char32_t character : event->commitString().toStdU32String())
    if (character >= kFirstCharacter) model_.TypeCharacter(character);
  event->accept();
}

QMenu* NumericEditField::MakeMenu() {
  TakeSelection();
  auto* menu = new QMenu(this);
  for (const CNumericEdit::MenuRow& row : CNumericEdit::kMenu) {
    if (row.separatorBefore) menu->addSeparator();
    const auto command = row.command;
    menu->addAction(QString::fromLatin1(row.caption), this, [this, command] { model_.OnCommand(command); })
        ->setEnabled(model_.CommandEnabled(command));
  }
  return menu;
}

void NumericEditField::contextMenuEvent(QContextMenuEvent* event) {
  setFocus(Qt::MouseFocusReason);
  QMenu* menu = MakeMenu();
  menu->exec(event->globalPos());
  delete menu;
}

// The middle button would paste past the rules.
void NumericEditField::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) QLineEdit::mouseReleaseEvent(event);
}

}  // namespace pyxis::ui
