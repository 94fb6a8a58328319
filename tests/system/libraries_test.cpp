// The two libraries that lie beside a program.
#include <dlfcn.h>

#include "support/bench.h"
#include "system/update_library.h"
#include "system/vendor_library.h"

namespace pyxis::test {
namespace {

namespace fs = std::filesystem;

class Libraries : public Bench {
 protected:
  // A library of the tests under this name.
  void Copy(const char* library, const std::string& to) {
    fs::create_directories((folder / to).parent_path());
    fs::copy_file(std::string(PYXIS_TEST_LIBRARY_DIR "/") + library, folder / to, fs::copy_options::overwrite_existing);
  }
};

TEST_F(Libraries, UpdatePassesTheCallAndItsResultOn) {
  UpdateLibrary library(PYXIS_TEST_LIBRARY_DIR);
  int window = 0;
  library.SetMainWindow(&window);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(library.CallUpdateAgent("request"), -7);
  SharedLibrary same;
  const char* (*lastCall)(void**, void**) = nullptr;
  ASSERT_TRUE(same.Load(PYXIS_TEST_LIBRARY_DIR, "UpdateAgent") && same.Find("LastCall", lastCall));
  void *lastWindow = nullptr, *lastInstance = nullptr;
  EXPECT_STREQ(lastCall(&lastWindow, &lastInstance), "request");
  EXPECT_EQ(lastWindow, &window);
  EXPECT_EQ(lastInstance, dlopen(nullptr, RTLD_NOW));
}

TEST_F(Libraries, WhatIsNoLibraryOrLacksACallIsMissing) {
  UpdateLibrary library(folder.string());
  EXPECT_EQ(library.CallUpdateAgent(""), kUpdateAgentMissing);
  WriteText("libUpdateAgent.so", "text");
  EXPECT_EQ(library.CallUpdateAgent(""), kUpdateAgentMissing);
  Copy("libUpdateAgent.so", "libUpdateAgent.so");
  EXPECT_EQ(library.CallUpdateAgent(""), -7);
  Copy("libvelmarapi.so", "other/libUpdateAgent.so");  // without the call
  UpdateLibrary other(Path("other"));
  VendorLibrary vendor(folder.string());
  EXPECT_EQ(vendor.VMOpen(0x9899, 0, 0), kVendorLibraryMissing);
  Copy("libUpdateAgent.so", "libvelmarapi.so");
  std::uint8_t byte = 7;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(other.CallUpdateAgent(""), kUpdateAgentMissing);
    EXPECT_EQ(vendor.VMOpen(0x9899, 0, 0), kVendorLibraryMissing);
    EXPECT_EQ(vendor.VMRead(1, &byte, 1), kVendorLibraryMissing);
  }
  fs::remove(folder / "libvelmarapi.so");  // it has been let go of
  Copy("libvelmarapi.so", "libvelmarapi.so");
  EXPECT_EQ(vendor.VMOpen(0x9899, 0, 0), -3);
}

TEST_F(Libraries, VendorPassesCallsOnOnceItIsOpen) {
  VendorLibrary library(PYXIS_TEST_LIBRARY_DIR);
  std::uint8_t byte = 7;
  library.VMSetTimeout(5);
  library.VMClose();
  EXPECT_EQ(library.VMWrite(1, &byte, 1), kVendorLibraryMissing);
  EXPECT_EQ(library.VMRead(1, &byte, 1), kVendorLibraryMissing);
  EXPECT_EQ(byte, 7);
  EXPECT_EQ(library.VMOpen(0x9899, 1, 2), -3);
  library.VMSetTimeout(5);
  EXPECT_EQ(library.VMWrite(20, &byte, 2), -4);
  EXPECT_EQ(library.VMRead(19, &byte, 512), -5);
  EXPECT_EQ(byte, 99);
  library.VMClose();
  EXPECT_EQ(library.VMOpen(0x9899, 0, 0), -3);
  SharedLibrary same;
  const char* (*calls)() = nullptr;
  ASSERT_TRUE(same.Load(PYXIS_TEST_LIBRARY_DIR, "velmarapi") && same.Find("Calls", calls));
  EXPECT_STREQ(calls(), "open 39065 1 2; timeout 5 0 0; write 20 7 2; read 19 0 512; close 0 0 0; open 39065 0 0; ");
}

}  // namespace
}  // namespace pyxis::test
