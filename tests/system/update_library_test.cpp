#include "system/update_library.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/machine.h"
#include "shell/version_check.h"
#include "support/bench.h"
#include "support/view_log.h"

namespace pyxis::test {
namespace {

namespace fs = std::filesystem;

class UpdateLibraryTest : public Bench {
 protected:
  void Copy(const char* library, const char* to) {
    fs::create_directories(folder / to);
    fs::copy_file(library, folder / to / "libUpdateAgent.so", fs::copy_options::overwrite_existing);
  }
};

TEST_F(UpdateLibraryTest, EveryResultThroughTheLoader) {
  UpdateLibrary library(PYXIS_TEST_LIBRARY_DIR);
  int window = 0;
  library.SetMainWindow(&window);
  ViewLog view;
  TheMachine().update = &library;
  TheMachine().view = &view;
  SharedLibrary same;
  ASSERT_TRUE(same.Load(PYXIS_TEST_LIBRARY_DIR, "UpdateAgent"));
  void (*setAnswer)(std::int32_t) = nullptr;
  const char* (*lastRequest)() = nullptr;
  void* (*lastWindow)() = nullptr;
  void* (*lastInstance)() = nullptr;
  ASSERT_TRUE(same.Find("SetAnswer", setAnswer) && same.Find("LastRequest", lastRequest) &&
              same.Find("LastWindow", lastWindow) && same.Find("LastInstance", lastInstance));
  // clang-format off
  for (const auto& [answer, boxes, lastCall] : Table<std::int32_t, std::size_t, std::string>{
           {0, 1, "end"}, {4, 1, "enable"}, {1, 0, "enable"}, {3, 0, "enable"}, {-7, 0, "enable"},
           {0x40000000, 0, "enable"}}) {
    // clang-format on
    SCOPED_TRACE(answer);
    setAnswer(answer);
    op.told.clear();
    op.answers = {true};
    CheckNewVersion();
    EXPECT_EQ(op.told.size(), boxes);
    EXPECT_EQ(view.calls.back(), lastCall);
    EXPECT_STREQ(lastRequest(), UpdateRequest);
    EXPECT_EQ(lastWindow(), &window);
    EXPECT_EQ(lastInstance(), dlopen(nullptr, RTLD_NOW));
  }
}

TEST_F(UpdateLibraryTest, WhatIsNoUpdateLibraryIsMissing) {
  UpdateLibrary library(folder.string());
  EXPECT_EQ(library.CallUpdateAgent(""), kUpdateAgentMissing);
  Write("libUpdateAgent.so", Bytes{'t', 'e', 'x', 't'});
  EXPECT_EQ(library.CallUpdateAgent(""), kUpdateAgentMissing);
  Copy(PYXIS_TEST_LIBRARY_DIR "/libUpdateAgent.so", "");
  EXPECT_EQ(library.CallUpdateAgent(""), 0);
  // A library without the call.
  Copy(PYXIS_BIN_DIR "/libvelmarapi.so", "other");
  EXPECT_EQ(UpdateLibrary(Path("other")).CallUpdateAgent(""), kUpdateAgentMissing);
}

}  // namespace
}  // namespace pyxis::test
