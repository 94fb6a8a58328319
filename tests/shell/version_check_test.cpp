#include "shell/version_check.h"

#include "platform/main_view.h"
#include "platform/update_agent.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

// Is the main window and the update client, and notes what they are told.
class VersionCheck : public Bench, public MainView, public UpdateAgent {
 protected:
  VersionCheck() {
    TheMachine().view = this;
    TheMachine().update = this;
  }
  void EndMainWindow() override { calls.push_back("end"); }
  void EnableMainWindow(bool enabled) override { calls.push_back(enabled ? "enable" : "disable"); }
  void PumpPaint() override { calls.push_back("paint"); }
  std::int32_t CallUpdateAgent(const char* text) override {
    calls.push_back("call");
    request = text;
    return answer;
  }
  Texts calls;
  std::string request;
  std::int32_t answer = 0;
};

TEST_F(VersionCheck, WhatEachResultMeans) {
  const Told question{"Do you want to exit old version of PyxisLoad ?", "Select Exit ? ", MessageIcon::None};
  const Told current{"This is newer version .", "PyxisLoad", MessageIcon::None};
  const Texts stays{"disable", "paint", "call", "enable"}, goes{"disable", "paint", "call", "enable", "end"};
  // clang-format off
  for (const auto& [result, yes, told, wanted] : Table<std::int32_t, bool, std::vector<Told>, Texts>{
           {0, true, {question}, goes}, {0, false, {question}, stays}, {4, true, {current}, stays},
           {1, true, {}, stays}, {kUpdateAgentMissing, true, {}, stays}}) {
    // clang-format on
    SCOPED_TRACE(result);
    calls.clear();
    op.answers = {yes};
    answer = result;
    CheckNewVersion();
    EXPECT_EQ(op.Boxes(), told);
    EXPECT_EQ(calls, wanted);
  }
  EXPECT_TRUE(request.starts_with("<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope "));
  EXPECT_NE(request.find("<clientXmlstr>&lt;?xml version=\"1.0\" encoding=\"utf-8\"?&gt;&lt;root&gt;&lt;oldFileInfo&gt;"
                         "&lt;progid&gt;KM48_EN&lt;/progid&gt;\n&lt;verno&gt;1.0.2&lt;/verno&gt;\n"
                         "&lt;buildno&gt;034&lt;/buildno&gt;\n&lt;/oldFileInfo&gt;\n&lt;/root&gt;\n</clientXmlstr>"),
            std::string::npos);
}

}  // namespace
}  // namespace pyxis::test
