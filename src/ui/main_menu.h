// The menu bar. Entries are enabled by the logic's rules each time their menu opens.
#pragma once

#include <functional>

#include "shell/menu_rules.h"

class QMenuBar;

namespace pyxis::ui {

void BuildMainMenu(QMenuBar& bar, const std::function<void(MenuEntry)>& chosen);

}  // namespace pyxis::ui
