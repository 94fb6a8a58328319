#include "ui/numeric_edit_field.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpressionValidator>
#include <QStyleOptionFrame>
#include <algorithm>

#include "platform/machine.h"
#include "platform/operator.h"
#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

using Command = CNumericEdit::Command;

constexpr int kFirstCharacter = 32;

QColor Of(const Colour& colour) { return {colour.red, colour.green, colour.blue}; }

// Keys that change nothing: the line edit's own.
bool MovesCaret(const QKeyEvent& event) {
  for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End})
    if (event.key() == key) return true;
  return event.matches(QKeySequence::SelectAll);
}

// Wide enough for that many digits, whatever the style puts around them.
void FitDigits(QLineEdit& edit, std::size_t count) {
  constexpr int kInside = 2 * 2 + 2;  // what a line edit leaves free on both sides, and the caret
  edit.ensurePolished();
  const QFontMetrics metrics = edit.fontMetrics();
  const int text = metrics.horizontalAdvance(QString(static_cast<qsizetype>(count), QLatin1Char('D')));
  QStyleOptionFrame option;
  option.initFrom(&edit);
  option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
  const QSize size(text + kInside, metrics.height());
  edit.setMinimumWidth(edit.style()->sizeFromContents(QStyle::CT_LineEdit, &option, size, &edit).width());
}

// Nothing when the clipboard holds no text, or can't be opened.
std::optional<std::string> ClipboardText() {
  const QMimeData* held = QGuiApplication::clipboard()->mimeData();
  if (held == nullptr || !held->hasText()) return std::nullopt;
  return ToText(held->text());
}

// As the fields write numbers: capital letters behind a small x.
void NormaliseClipboard() {
  const auto text = ClipboardText();
  if (!text) return;
  const QString held = FromText(*text), normal = held.toUpper().replace(QLatin1Char('X'), QLatin1Char('x'));
  if (normal != held) QGuiApplication::clipboard()->setText(normal);
}

}  // namespace

NumericEditField::NumericEditField(std::size_t maxLength, QWidget* parent) : QLineEdit(parent), maxLength_(maxLength) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  FitDigits(*this, maxLength);
  setAcceptDrops(false);
  // For what comes past the keys, such as an accessibility tool.
  static const QRegularExpression number(QStringLiteral("(0[xX])?[0-9A-Fa-f]*"));
  setValidator(new QRegularExpressionValidator(number, this));
  connect(this, &QLineEdit::textChanged, this, &NumericEditField::OnTextChanged);
  SyncColours();
}

CNumericEdit NumericEditField::Now() const {
  CNumericEdit now{ToText(text())};
  now.start = static_cast<std::size_t>(hasSelectedText() ? selectionStart() : cursorPosition());
  now.end = static_cast<std::size_t>(hasSelectedText() ? selectionEnd() : cursorPosition());
  now.maxLength = maxLength_;
  now.readOnly = isReadOnly();
  now.canUndo = isUndoAvailable();
  return now;
}

void NumericEditField::Show(const std::string& text) {
  const QString shown = FromText(text);
  if (shown == this->text()) return;
  const int caret = static_cast<int>(Now().end);
  showing_ = true;
  setText(shown);
  showing_ = false;
  setCursorPosition(caret);  // at most behind the last character
}

void NumericEditField::OnTextChanged() {
  HexMode = Now().HexMode();
  SyncColours();
  if (!showing_) TextEdited(ToText(text()));
}

void NumericEditField::SyncColours() {
  QPalette colours = palette();
  colours.setColor(QPalette::Text, Of(HexMode ? colours_.HexTextColour : colours_.DecimalTextColour));
  colours.setColor(QPalette::Base, Of(HexMode ? colours_.HexBackColour : colours_.DecimalBackColour));
  if (colours != palette()) setPalette(colours);
}

void NumericEditField::SetHexColours(Colour text, Colour back) {
  colours_.HexTextColour = text;
  colours_.HexBackColour = back;
  SyncColours();
}

void NumericEditField::SetDecimalColours(Colour text, Colour back) {
  colours_.DecimalTextColour = text;
  colours_.DecimalBackColour = back;
  SyncColours();
}

void NumericEditField::ConvertRadix() {
  const QString converted = FromText(Now().ConvertRadix());
  if (converted != text()) setText(converted);
}

void NumericEditField::Type(const QString& characters) {
  for (const char32_t character : characters.toStdU32String())
    if (const auto typed = Now().Typed(character)) insert(QString(QLatin1Char(*typed)));
}

void NumericEditField::Paste() {
  if (QGuiApplication::clipboard()->mimeData() == nullptr) {
    TheMachine().op->Tell("Cannot open clipboard!", kMessageCaption, MessageIcon::Warning);
  } else if (Now().CommandEnabled(Command::Paste, ClipboardText())) {
    paste();
  }
}

// False for a key that the field doesn't know.
bool NumericEditField::EditByKey(const QKeyEvent& event) {
  const CNumericEdit now = Now();
  if (event.matches(QKeySequence::Copy)) {
    copy();
  } else if (event.matches(QKeySequence::Cut)) {
    if (now.CutPasses()) cut();
  } else if (event.matches(QKeySequence::Paste)) {
    Paste();
  } else if (event.matches(QKeySequence::Undo)) {
    undo();
  } else if (event.matches(QKeySequence::Redo)) {
    redo();
  } else if (event.key() == Qt::Key_Backspace) {
    if (now.BackspacePasses()) backspace();
  } else if (event.key() == Qt::Key_Delete) {
    if (now.DeletePasses()) del();
  } else {
    const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const QString typed = event.text();
    if (command || typed.isEmpty() || typed[0].unicode() < kFirstCharacter) return false;
    Type(typed);
  }
  return true;
}

void NumericEditField::keyPressEvent(QKeyEvent* event) {
  if (MovesCaret(*event)) {
    QLineEdit::keyPressEvent(event);
  } else {
    event->setAccepted(EditByKey(*event));
  }
}

void NumericEditField::inputMethodEvent(QInputMethodEvent* event) {
  Type(event->commitString());
  event->accept();
}

void NumericEditField::OnCommand(Command command) {
  if (!Now().CommandEnabled(command, ClipboardText())) return;
  if (command < Command::SelectAll) NormaliseClipboard();
  switch (command) {
    case Command::Undo:
      return undo();
    case Command::Cut:
      return cut();
    case Command::Copy:
      return copy();
    case Command::Paste:
      return Paste();
    case Command::Delete:
      return del();
    case Command::SelectAll:
      return selectAll();
    case Command::Convert:
      return ConvertRadix();
  }
}

QMenu* NumericEditField::MakeMenu() {
  const CNumericEdit now = Now();
  auto* menu = new QMenu(this);
  for (const CNumericEdit::MenuRow& row : CNumericEdit::kMenu) {
    if (row.separatorBefore) menu->addSeparator();
    const auto command = row.command;
    menu->addAction(QString::fromLatin1(row.caption), this, [this, command] { OnCommand(command); })
        ->setEnabled(now.CommandEnabled(command, ClipboardText()));
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
