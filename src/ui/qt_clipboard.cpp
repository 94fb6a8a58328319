#include "ui/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "ui/qt_text.h"

namespace pyxis::ui {

bool QtClipboard::Read(std::optional<std::string>& text) {
  const QMimeData* held = QGuiApplication::clipboard()->mimeData();
  if (held == nullptr) return false;
  text.reset();
  if (held->hasText()) text = ToText(held->text());
  return true;
}

bool QtClipboard::Write(const std::string& text) {
  QGuiApplication::clipboard()->setText(FromText(text));
  return true;
}

}  // namespace pyxis::ui
