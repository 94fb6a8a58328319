#include "ui/smart_option_window.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

#include "options/smart_option_dlg.h"
#include "ui/qt_text.h"
#include "ui/title_width.h"

namespace pyxis::ui {

namespace {

constexpr int kListUnits = 12;  // height of a closed list in dialog units: that of a row
constexpr int kMiddle = 128;    // of lightness: a darker background needs light captions

// Every list only tells its selection, so it is disabled; its text stays as readable as an enabled one's.
void KeepTextReadable(QComboBox& list) {
  QPalette palette = list.palette();
  for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::Text, QPalette::WindowText})
    palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
  list.setPalette(palette);
}

}  // namespace

SmartOptionWindow::SmartOptionWindow(CSmartOptionDlg& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  ensurePolished();
  const int horizontalBaseUnit = fontMetrics().averageCharWidth();
  setFixedSize(CSmartOptionDlg::kWidth * horizontalBaseUnit / 4, CSmartOptionDlg::kHeight * VerticalBaseUnit() / 8);
  dialog_.OnInitDialog(*this);
}

int SmartOptionWindow::VerticalBaseUnit() { return fontMetrics().height(); }

int SmartOptionWindow::TextWidth(const std::string& text) { return fontMetrics().horizontalAdvance(FromText(text)); }

OptionRect SmartOptionWindow::Placement() { return {x(), y(), width(), height()}; }

void SmartOptionWindow::Place(const OptionRect& placement) {
  move(screen()->availableGeometry().topLeft() + QPoint(placement.x, placement.y));
  setFixedSize(placement.width, placement.height);
}

int SmartOptionWindow::ClientHeight() { return height(); }

void SmartOptionWindow::SetTitle(const std::string& title) {
  setWindowTitle(FromText(title));
  setFixedWidth(std::max(width(), TitleWidth(*this, windowTitle())));
}

OptionListHandle SmartOptionWindow::CreateList(const OptionRect& rect, const std::string& name) {
  auto* list = new QComboBox(this);
  list->setEnabled(false);
  list->setAccessibleName(FromText(name));
  list->setGeometry(rect.x, rect.y, rect.width, kListUnits * VerticalBaseUnit() / 8);
  KeepTextReadable(*list);
  lists_.push_back(list);
  return static_cast<OptionListHandle>(lists_.size());
}

void SmartOptionWindow::FillList(OptionListHandle list, const std::vector<std::string>& alternatives, int selection) {
  QComboBox& box = *lists_[static_cast<std::size_t>(list - 1)];
  for (const std::string& alternative : alternatives) box.addItem(FromText(alternative));
  box.setCurrentIndex(selection < box.count() ? selection : -1);
}

void SmartOptionWindow::DrawLabel(int x, int y, const std::string& text, OptionColor color) {
  const bool dark = palette().window().color().lightness() < kMiddle;
  const QColor blue = dark ? QColor(140, 180, 255) : QColor(Qt::blue);
  const QColor black = dark ? QColor(Qt::white) : QColor(Qt::black);
  painter_->setPen(color == OptionColor::Blue ? blue : black);
  painter_->drawText(x, y + fontMetrics().ascent(), FromText(text));
}

void SmartOptionWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter_ = &painter;
  dialog_.PaintOptionLabels(*this);
  painter_ = nullptr;
}

// There is no button that Return could press.
void SmartOptionWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return accept();
  QDialog::keyPressEvent(event);
}

}  // namespace pyxis::ui
