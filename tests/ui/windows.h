// Every window of the program, ready to be looked at.
#pragma once

#include <QWidget>
#include <functional>

#include "ui/ui_bench.h"

namespace pyxis::test {

class EveryWindow : public UiBench {
 protected:
  // A writer with a job, and the main window over it.
  EveryWindow();
  // Shows each window in turn and hands it over with its name.
  void ForEach(const std::function<void(QWidget&, const std::string&)>& look);
};

}  // namespace pyxis::test
