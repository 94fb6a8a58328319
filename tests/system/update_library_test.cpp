#include "system/update_library.h"

#include <dlfcn.h>

#include "support/bench.h"

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

TEST_F(UpdateLibraryTest, PassesTheCallAndItsResultOn) {
  UpdateLibrary library(PYXIS_TEST_LIBRARY_DIR);
  int window = 0;
  library.SetMainWindow(&window);
  EXPECT_EQ(library.CallUpdateAgent("request"), -7);
  SharedLibrary same;
  const char* (*lastCall)(void**, void**) = nullptr;
  ASSERT_TRUE(same.Load(PYXIS_TEST_LIBRARY_DIR, "UpdateAgent") && same.Find("LastCall", lastCall));
  void *lastWindow = nullptr, *lastInstance = nullptr;
  EXPECT_STREQ(lastCall(&lastWindow, &lastInstance), "request");
  EXPECT_EQ(lastWindow, &window);
  EXPECT_EQ(lastInstance, dlopen(nullptr, RTLD_NOW));
}

TEST_F(UpdateLibraryTest, WhatIsNoUpdateLibraryIsMissing) {
  UpdateLibrary library(folder.string());
  EXPECT_EQ(library.CallUpdateAgent(""), kUpdateAgentMissing);
  WriteText("libUpdateAgent.so", "text");
  EXPECT_EQ(library.CallUpdateAgent(""), kUpdateAgentMissing);
  Copy(PYXIS_TEST_LIBRARY_DIR "/libUpdateAgent.so", "");
  EXPECT_EQ(library.CallUpdateAgent(""), -7);
  // A library without the call.
  Copy(PYXIS_BIN_DIR "/libvelmarapi.so", "other");
  EXPECT_EQ(UpdateLibrary(Path("other")).CallUpdateAgent(""), kUpdateAgentMissing);
}

}  // namespace
}  // namespace pyxis::test
