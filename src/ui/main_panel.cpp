#include "ui/main_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>

#include "options/option_select.h"
#include "platform/text.h"
#include "ui/figure_view.h"
#include "ui/hex_view_widget.h"
#include "ui/qt_text.h"
#include "ui/readable_style.h"
#include "ui/verdict_label.h"

namespace pyxis::ui {

namespace {

// Hidden controls keep their place, so that nothing jumps when an IC or a mode changes.
void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace

MainPanel::MainPanel(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  auto* side = new QVBoxLayout;
  side->addWidget(MakeFuseGroup());
  side->addLayout(MakeFigure(), 1);
  auto* middle = new QHBoxLayout;
  middle->addWidget(MakeBuffer(), 1);
  middle->addLayout(side);
  auto* all = new QVBoxLayout(this);
  all->addLayout(MakeFields());
  all->addLayout(MakeModeLabels());
  all->addLayout(middle, 1);
  all->addLayout(MakeButtons());
  verdict_ = new VerdictLabel(this);
  all->addWidget(verdict_);
  // The fields were made last; the tab order goes from the top to the bottom.
  const ControlId order[] = {ControlId::FileField,  ControlId::ChipNameField, ControlId::ChecksumField,
                             ControlId::BufferArea, ControlId::Auto,          ControlId::BlankCheck,
                             ControlId::Program,    ControlId::Verify,        ControlId::Read,
                             ControlId::WriterTest, ControlId::SmartOption};
  for (std::size_t i = 1; i < std::size(order); ++i)
    setTabOrder(controls_.Widget(order[i - 1]), controls_.Widget(order[i]));
}

void MainPanel::AddField(QGridLayout& grid, int column, const char* caption, ControlId id, const char* name) {
  auto* label = new QLabel(QString::fromLatin1(caption), this);
  auto* edit = new QLineEdit(this);
  edit->setReadOnly(true);
  edit->setAccessibleName(QString::fromLatin1(name));
  label->setBuddy(edit);
  const int row = id == ControlId::FileField ? 0 : 1;
  grid.addWidget(label, row, column);
  grid.addWidget(edit, row, column + 1, 1, row == 0 ? -1 : 1);
  controls_.Bind(id, edit);
}

QLayout* MainPanel::MakeFields() {
  auto* grid = new QGridLayout;
  AddField(*grid, 0, "Fi&le : ", ControlId::FileField, "File");
  AddField(*grid, 0, "&Chip Name : ", ControlId::ChipNameField, "Chip Name");
  AddField(*grid, 2, "Chec&ksum :  ", ControlId::ChecksumField, "Checksum");
  grid->setColumnStretch(1, 3);
  grid->setColumnStretch(3, 1);
  grid->setColumnStretch(4, 4);
  return grid;
}

QLayout* MainPanel::MakeModeLabels() {
  struct Mode {
    ControlId id;
    const char* text;
  };
  auto* row = new QHBoxLayout;
  for (const Mode& mode : {Mode{ControlId::ExhvIspLabel, "EXHV ISP Program"}, Mode{ControlId::IspLabel, "ISP Program"},
                           Mode{ControlId::MassProductionLabel, "Mass Production Mode"},
                           Mode{ControlId::ProductionLimitLabel, "Production Limit"}}) {
    auto* label = new QLabel(QString::fromLatin1(mode.text), this);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setMouseTracking(true);
    KeepPlace(*label);
    row->addWidget(label);
    row->addSpacing(16);
    controls_.Bind(mode.id, label);
  }
  row->addStretch();
  return row;
}

QWidget* MainPanel::MakeBuffer() {
  hex_ = new HexViewWidget(TheHexView(), this);
  auto* area = new QPlainTextEdit(this);
  area->setReadOnly(true);
  area->setFont(hex_->font());
  area->setAccessibleName(QStringLiteral("Messages"));
  area->setTabStopDistance(4.0 * area->fontMetrics().horizontalAdvance(QLatin1Char('0')));
  area->setTabChangesFocus(true);
  stack_ = new QStackedWidget(this);
  stack_->addWidget(hex_);
  stack_->addWidget(area);
  controls_.Bind(ControlId::BufferArea, area, ControlMirror::Kind::Page);
  return stack_;
}

QWidget* MainPanel::MakeFuseGroup() {
  // A row a pair of buttons of Option Select 1, the first button on the left.
  constexpr ControlId kBoxes[3][2] = {{ControlId::Unprotect, ControlId::Protect},
                                      {ControlId::FastMode, ControlId::DualMode},
                                      {ControlId::Clock32kDisable, ControlId::Clock32kEnable}};
  auto* group = new QGroupBox(QStringLiteral("Fuse"), this);
  auto* grid = new QGridLayout(group);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 2; ++column) {
      auto* check = new ShownBox(FromText(WithoutMnemonic(COptionSelectDlg::kCaptions[row][column])), group);
      KeepPlace(*check);
      grid->addWidget(check, row, column);
      controls_.Bind(kBoxes[row][column], check);
    }
  return group;
}

QLayout* MainPanel::MakeFigure() {
  auto* box = new QVBoxLayout;
  box->addWidget(new QLabel(QStringLiteral("Program Pin Placement:"), this));
  figure_ = new FigureView(this);
  figure_->setAccessibleName(QStringLiteral("Program Pin Placement"));
  box->addWidget(figure_);
  box->addStretch();
  return box;
}

void MainPanel::AddButton(QBoxLayout& row, ControlId id, const char* caption, const char* tip) {
  auto* button = new QPushButton(QString::fromLatin1(caption), this);
  button->setToolTip(QString::fromLatin1(tip));
  button->setMinimumHeight(button->sizeHint().height() * 3 / 2);
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, [this, id] { Pressed(id); });
  row.addWidget(button);
  controls_.Bind(id, button);
}

QLayout* MainPanel::MakeButtons() {
  auto* row = new QHBoxLayout;
  AddButton(*row, ControlId::Auto, "A&uto", "Blank check, program and verify the chip in the socket");
  AddButton(*row, ControlId::BlankCheck, "&Blank check", "Check that the chip is blank; erases MTP/Flash series ICs");
  AddButton(*row, ControlId::Program, "&Program", "Program the chip");
  AddButton(*row, ControlId::Verify, "&Verify", "Compare the chip with the data in the writer");
  AddButton(*row, ControlId::Read, "&Read", "Read the chip");
  AddButton(*row, ControlId::WriterTest, "&Writer Test", "Test the voltages of the writer");
  row->addStretch();
  AddButton(*row, ControlId::SmartOption, "&Smart Option", "Show the configuration word in words");
  return row;
}

void MainPanel::Sync() {
  controls_.Sync();
  // Both lie on one place; the hex view is in front whenever it is visible.
  stack_->setCurrentIndex(TheMainControls()[ControlId::HexView].visible ? 0 : 1);
  figure_->ShowFigure(TheMainControls().pinFigure);
  verdict_->Sync();
}

bool MainPanel::Focus(ControlId id) {
  QWidget& control = *controls_.Widget(id);
  if (!control.isEnabled() || control.isHidden()) return false;
  control.setFocus();
  return true;
}

void MainPanel::mouseMoveEvent(QMouseEvent* event) { MouseMoved(event->pos().x(), event->pos().y()); }

void MainPanel::mousePressEvent(QMouseEvent* event) {
  if (!DropsMousePress()) QWidget::mousePressEvent(event);
}

}  // namespace pyxis::ui
