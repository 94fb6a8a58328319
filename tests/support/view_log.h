// A main window that records what it was told to do.
#pragma once

#include <string>
#include <vector>

#include "platform/main_view.h"

namespace pyxis::test {

class ViewLog : public MainView {
 public:
  std::vector<std::string> calls;
  void EndMainWindow() override { calls.push_back("end"); }
  void EnableMainWindow(bool enabled) override { calls.push_back(enabled ? "enable" : "disable"); }
};

}  // namespace pyxis::test
