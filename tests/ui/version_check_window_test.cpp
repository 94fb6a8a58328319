// Check new version from the menu: the main window stays, or goes without another question.
#include "platform/update_agent.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

class VersionCheckWindow : public UiBench, public UpdateAgent {
  std::int32_t CallUpdateAgent(const char*) override {
    EXPECT_FALSE(window->isEnabled());
    return 0;
  }
};

TEST_F(VersionCheckWindow, OnlyYesEndsTheProgram) {
  Open();
  TheMachine().update = this;
  Find(*window, "Buffer").setFocus();
  QWidget* focused = window->focusWidget();
  ASSERT_NE(focused, nullptr);
  EXPECT_TRUE(Choose("Check new version"));
  EXPECT_TRUE(window->isEnabled() && window->isVisible());
  EXPECT_EQ(window->focusWidget(), focused);
  answers = {QMessageBox::Yes};
  EXPECT_TRUE(Choose("Check new version"));
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(seen, Texts(2, "Do you want to exit old version of PyxisLoad ?"));
}

}  // namespace
}  // namespace pyxis::test
