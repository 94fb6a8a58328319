#include "shell/version_check.h"

#include "platform/files.h"
#include "platform/machine.h"
#include "shell/app_state.h"
#include "support/bench.h"
#include "support/view_log.h"

namespace pyxis::test {
namespace {


// Notes what is in force while the client runs.
class WatchedAgent : public UpdateAgent {
 public:
  WatchedAgent(ViewLog& view, ScriptedOperator& op) : view_(view), op_(op) {}
  std::int32_t result = 0;
  CursorHandle cursor = 0;
  std::int32_t CallUpdateAgent(const char*) override {
    view_.calls.push_back("call");
    cursor = op_.cursor;
    return result;
  }

 private:
  ViewLog& view_;
  ScriptedOperator& op_;
};

class VersionCheck : public Bench {
 protected:
  VersionCheck() {
    TheMachine().view = &view;
    TheMachine().update = &agent;
  }
  ViewLog view;
  WatchedAgent agent{view, op};
};

TEST_F(VersionCheck, WhatEachResultMeans) {
  const Told question{"Do you want to exit old version of PyxisLoad ?", "Select Exit ? ", MessageIcon::None};
  const Told current{"This is newer version .", "PyxisLoad", MessageIcon::None};
  // clang-format off
  for (const auto& [result, answer, told, calls] : Table<std::int32_t, bool, std::vector<Told>, Texts>{
           {0, true, {question}, {"disable", "call", "enable", "end"}},
           {0, false, {question}, {"disable", "call", "enable"}},
           {4, true, {current}, {"disable", "call", "enable"}},
           {1, true, {}, {"disable", "call", "enable"}},
           {kUpdateAgentMissing, true, {}, {"disable", "call", "enable"}}}) {
    // clang-format on
    SCOPED_TRACE(result);
    op.told.clear();
    view.calls.clear();
    op.answers = {answer};
    agent.result = result;
    CheckNewVersion();
    EXPECT_EQ(op.told, told);
    EXPECT_EQ(view.calls, calls);
  }
}

TEST_F(VersionCheck, TheCursorLiesInTheCurrentFolder) {
  TheAppState().AppDir = "/elsewhere/";
  for (const bool loads : {true, false}) {
    op.cursorsLoad = loads;
    op.cursors.clear();
    CheckNewVersion();
    EXPECT_EQ(op.cursors, (Texts{CurrentDirectory() + "/dinosaur.ani"}));
    EXPECT_EQ(agent.cursor != 1, loads);
    EXPECT_EQ(op.cursor, 1);
  }
}

std::string Between(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t start = text.find(from);
  const std::size_t end = text.find(to, start);
  if (start == std::string::npos || end == std::string::npos) return "not there";
  return text.substr(start + from.size(), end - start - from.size());
}

TEST_F(VersionCheck, TheRequestNamesTheProgram) {
  TheMachine().update = &update;
  CheckNewVersion();
  EXPECT_TRUE(update.request.starts_with("<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope "));
  std::string inner = Between(update.request, "<clientXmlstr>", "</clientXmlstr>");
  EXPECT_EQ(inner.find_first_of("<>"), std::string::npos);
  for (const auto& [escape, plain] : {std::pair{"&lt;", '<'}, std::pair{"&gt;", '>'}})
    for (std::size_t at = inner.find(escape); at != std::string::npos; at = inner.find(escape, at))
      inner.replace(at, 4, 1, plain);
  EXPECT_EQ(inner,
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><root><oldFileInfo><progid>KM48_EN</progid>\n"
            "<verno>1.0.2</verno>\n<buildno>034</buildno>\n</oldFileInfo>\n</root>\n");
}

}  // namespace
}  // namespace pyxis::test
