#include "ui/main_menu.h"

#include <QMenu>
#include <QMenuBar>
#include <initializer_list>

namespace pyxis::ui {

namespace {

using Chosen = std::function<void(MenuEntry)>;

struct Entry {
  MenuEntry entry;
  const char* caption;
  const char* prompt;
};

void AddEntry(QWidget& menu, const Entry& entry, const Chosen& chosen) {
  auto* action = new QAction(QString::fromLatin1(entry.caption), &menu);
  action->setStatusTip(QString::fromLatin1(entry.prompt));
  action->setData(static_cast<int>(entry.entry));
  QObject::connect(action, &QAction::triggered, &menu, [chosen, which = entry.entry] { chosen(which); });
  menu.addAction(action);
}

void AddMenu(QMenuBar& bar, const char* caption, std::initializer_list<Entry> entries, const Chosen& chosen) {
  QMenu* menu = bar.addMenu(QString::fromLatin1(caption));
  for (const Entry& entry : entries) AddEntry(*menu, entry, chosen);
  QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] {
    for (QAction* action : menu->actions())
      action->setEnabled(MenuEnabled(static_cast<MenuEntry>(action->data().toInt())));
  });
}

}  // namespace

void BuildMainMenu(QMenuBar& bar, const Chosen& chosen) {
  bar.setNativeMenuBar(false);
  AddMenu(bar, "&File",
          {{MenuEntry::LoadFile, "&Load File", "Load file *.Hex *.Otp *.Obj"},
           {MenuEntry::SaveAs, "&Save As...", ""},
           {MenuEntry::Exit, "&Exit", ""}},
          chosen);
  AddEntry(bar, {MenuEntry::Device, "&Device", ""}, chosen);
  AddMenu(bar, "&Operation",
          {{MenuEntry::UpdateFirmware, "&Update F/W", ""},
           {MenuEntry::SerialNumberProgram, "Serial Number Program", ""},
           {MenuEntry::CheckNewVersion, "Check new version", ""},
           {MenuEntry::CompareFile, "Compare File", ""},
           {MenuEntry::SetProtect, "Set Protect", ""},
           {MenuEntry::ReadChipInfo, "Read Chip Info", ""}},
          chosen);
  AddEntry(bar, {MenuEntry::About, "&About", ""}, chosen);
}

}  // namespace pyxis::ui
