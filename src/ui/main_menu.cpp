#include "ui/main_menu.h"

#include <QMenu>
#include <QMenuBar>
#include <initializer_list>

namespace pyxis::ui {

namespace {

using Chosen = std::function<void(MenuEntry)>;

// In the status line while the entry is marked.
const char* PromptOf(MenuEntry entry) { return entry == MenuEntry::LoadFile ? "Load file *.Hex *.Otp *.Obj" : ""; }

void AddEntry(QWidget& menu, MenuEntry entry, const Chosen& chosen) {
  auto* action = new QAction(QString::fromLatin1(CaptionOf(entry)), &menu);
  action->setStatusTip(QString::fromLatin1(PromptOf(entry)));
  action->setData(static_cast<int>(entry));
  QObject::connect(action, &QAction::triggered, &menu, [chosen, entry] { chosen(entry); });
  menu.addAction(action);
}

void AddMenu(QMenuBar& bar, const char* caption, std::initializer_list<MenuEntry> entries, const Chosen& chosen) {
  QMenu* menu = bar.addMenu(QString::fromLatin1(caption));
  for (const MenuEntry entry : entries) AddEntry(*menu, entry, chosen);
  QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] {
    for (QAction* action : menu->actions())
      action->setEnabled(MenuEnabled(static_cast<MenuEntry>(action->data().toInt())));
  });
}

}  // namespace

void BuildMainMenu(QMenuBar& bar, const Chosen& chosen) {
  bar.setNativeMenuBar(false);
  AddMenu(bar, "&File", {MenuEntry::LoadFile, MenuEntry::SaveAs, MenuEntry::Exit}, chosen);
  AddEntry(bar, MenuEntry::Device, chosen);
  AddMenu(bar, "&Operation",
          {MenuEntry::UpdateFirmware, MenuEntry::SerialNumberProgram, MenuEntry::CheckNewVersion,
           MenuEntry::CompareFile, MenuEntry::SetProtect, MenuEntry::ReadChipInfo},
          chosen);
  AddEntry(bar, MenuEntry::About, chosen);
}

}  // namespace pyxis::ui
