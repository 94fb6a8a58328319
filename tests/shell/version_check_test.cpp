#include "shell/version_check.h"

#include "platform/files.h"
#include "platform/machine.h"
#include "shell/app_state.h"
#include "support/bench.h"
#include "support/view_log.h"

namespace pyxis::test {
namespace {

using Calls = std::vector<std::string>;

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
  struct Case {
    std::int32_t result;
    bool answer;
    std::vector<Told> told;
    Calls calls;
  };
  for (const Case& c :
       {Case{0, true, {question}, {"disable", "call", "enable", "end"}},
        Case{0, false, {question}, {"disable", "call", "enable"}},
        Case{4, true, {current}, {"disable", "call", "enable"}}, Case{1, true, {}, {"disable", "call", "enable"}},
        Case{kUpdateAgentMissing, true, {}, {"disable", "call", "enable"}}}) {
    SCOPED_TRACE(c.result);
    op.told.clear();
    view.calls.clear();
    op.answers = {c.answer};
    agent.result = c.result;
    CheckNewVersion();
    EXPECT_EQ(op.told, c.told);
    EXPECT_EQ(view.calls, c.calls);
  }
}

TEST_F(VersionCheck, TheCursorLiesInTheCurrentFolder) {
  TheAppState().AppDir = "/elsewhere/";
  for (const bool loads : {true, false}) {
    op.cursorsLoad = loads;
    op.cursors.clear();
    CheckNewVersion();
    EXPECT_EQ(op.cursors, (Calls{CurrentDirectory() + "/dinosaur.ani"}));
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
