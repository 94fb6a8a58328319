#include "ui/ic_select_window.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "catalogue/ic_select.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "ui/choice_list.h"
#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

constexpr int kListWidth = 30;  // characters
constexpr int kListLines = 14;
constexpr int kLimitWidth = 10;            // characters
constexpr std::uint32_t kTypingMs = 2000;  // a longer pause begins another name

void Fill(QListWidget& list, const std::vector<std::string>& entries) {
  list.clear();
  for (const std::string& entry : entries) list.addItem(FromText(entry));
}

bool Holds(const QListWidget& list, const std::vector<std::string>& entries) {
  if (list.count() != static_cast<int>(entries.size())) return false;
  for (int i = 0; i < list.count(); ++i)
    if (list.item(i)->text() != FromText(entries[static_cast<std::size_t>(i)])) return false;
  return true;
}

void Show(QCheckBox& box, const CIcSelectDlg::CheckBox& state) {
  box.setEnabled(state.enabled);
  box.setChecked(state.checked);
}

ChoiceList* MakeList(QWidget* parent) {
  auto* list = new ChoiceList(parent);
  list->setMinimumSize(kListWidth * list->fontMetrics().averageCharWidth(),
                       kListLines * list->fontMetrics().lineSpacing());
  list->setUniformItemSizes(true);
  return list;
}

}  // namespace

IcSelectWindow::IcSelectWindow(CIcSelectDlg& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  setWindowTitle(QStringLiteral("IC Type Select"));
  auto* all = new QVBoxLayout(this);
  all->addLayout(MakeLists(), 1);
  all->addLayout(MakeChosen());
  all->addLayout(MakeChoices());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (dialog_.OnOk()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  all->addWidget(buttons);
  mirror_.Show([this] { Sync(); });
}

QLayout* IcSelectWindow::MakeLists() {
  series_ = MakeList(this);
  types_ = MakeList(this);
  auto* seriesLabel = new QLabel(QStringLiteral("Se&ries"), this);
  seriesLabel->setBuddy(series_);
  auto* typeLabel = new QLabel(QStringLiteral("&Type"), this);
  typeLabel->setBuddy(types_);
  connect(series_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) dialog_.OnSeriesChange(row);
  });
  connect(types_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) dialog_.OnTypeChange(row);
  });
  types_->TakenAgain = [this](int row) { dialog_.OnTypeChange(row); };
  for (ChoiceList* list : {series_, types_}) list->Typed = [this](const QString& text) { OnTyped(text); };
  connect(types_, &QListWidget::itemDoubleClicked, this, [this] {
    if (dialog_.OnOk()) accept();
  });
  auto* grid = new QGridLayout;
  grid->addWidget(seriesLabel, 0, 0);
  grid->addWidget(typeLabel, 0, 1);
  grid->addWidget(series_, 1, 0);
  grid->addWidget(types_, 1, 1);
  grid->setRowStretch(1, 1);
  return grid;
}

QLayout* IcSelectWindow::MakeChosen() {
  seriesCaption_ = new QLabel(this);
  chipName_ = new QLabel(this);
  QFont bold = font();
  bold.setBold(true);
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(QStringLiteral("Series :"), this), 0, 0);
  grid->addWidget(seriesCaption_, 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("IC Type :"), this), 1, 0);
  grid->addWidget(chipName_, 1, 1);
  grid->setColumnStretch(1, 1);
  for (QLabel* label : {seriesCaption_, chipName_}) {
    label->setFont(bold);
    label->setTextFormat(Qt::PlainText);
  }
  return grid;
}

QLayout* IcSelectWindow::MakeChoices() {
  const auto check = [this](const std::string& caption, auto changed) {
    auto* box = new QCheckBox(FromText(caption), this);
    connect(box, &QCheckBox::clicked, this, changed);
    return box;
  };
  displaySerial_ =
      check(CIcSelectDlg::kDisplaySerialCaption, [this](bool checked) { dialog_.OnDisplaySerial(checked); });
  exhvIsp_ = check(CIcSelectDlg::kExhvIspCaption, [this](bool checked) { dialog_.OnExhvIsp(checked); });
  isp_ = check(CIcSelectDlg::kIspCaption, [this](bool checked) { dialog_.OnIsp(checked); });
  massProduction_ =
      check(CIcSelectDlg::kMassProductionCaption, [this](bool checked) { dialog_.OnMassProduction(checked); });
  productionLimit_ = check(CIcSelectDlg::kProductionLimitCaption + std::string(" :"),
                           [this](bool checked) { dialog_.OnProductionLimit(checked); });
  limit_ = new QLineEdit(this);
  limit_->setAccessibleName(QStringLiteral("Production Limit"));
  limit_->setFixedWidth(kLimitWidth * limit_->fontMetrics().horizontalAdvance(QLatin1Char('0')));
  connect(limit_, &QLineEdit::textEdited, this, [this](const QString& text) { dialog_.OnLimitText(ToText(text)); });
  auto* limitRow = new QHBoxLayout;
  limitRow->addWidget(productionLimit_);
  limitRow->addWidget(limit_);
  limitRow->addStretch(1);
  auto* grid = new QGridLayout;
  grid->addWidget(displaySerial_, 0, 0);
  grid->addWidget(exhvIsp_, 1, 0);
  grid->addWidget(isp_, 2, 0);
  grid->addWidget(massProduction_, 0, 1);
  grid->addLayout(limitRow, 1, 1);
  return grid;
}

void IcSelectWindow::OnTyped(const QString& text) {
  const std::uint32_t now = TheMachine().clock->TickCount();
  const bool anew = now - typedAt_ > kTypingMs;
  typedAt_ = now;
  dialog_.OnTypedName(ToText(text), anew);
}

void IcSelectWindow::SyncLists() {
  const QSignalBlocker quietSeries(series_), quietTypes(types_);
  if (!Holds(*series_, dialog_.seriesList)) Fill(*series_, dialog_.seriesList);
  if (!Holds(*types_, dialog_.typeList)) Fill(*types_, dialog_.typeList);
  series_->setCurrentRow(dialog_.seriesPosition);
  types_->setCurrentRow(dialog_.typePosition);
}

void IcSelectWindow::Sync() {
  SyncLists();
  seriesCaption_->setText(FromText(dialog_.seriesCaption));
  chipName_->setText(FromText(dialog_.chipName));
  Show(*displaySerial_, dialog_.displaySerial);
  Show(*exhvIsp_, dialog_.exhvIsp);
  Show(*isp_, dialog_.isp);
  Show(*massProduction_, dialog_.massProduction);
  Show(*productionLimit_, dialog_.productionLimit);
  limit_->setEnabled(dialog_.limitEditEnabled);
  if (limit_->text() != FromText(dialog_.limitText)) limit_->setText(FromText(dialog_.limitText));
}

}  // namespace pyxis::ui
