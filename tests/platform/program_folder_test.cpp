#include "platform/program_folder.h"

#include <cstdlib>
#include <set>

#include "platform/files.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

namespace fs = std::filesystem;

// An installation, and a user who has no program folder yet.
class ProgramFolderTest : public Bench {
 protected:
  ProgramFolderTest() {
    Install("usr");
    Set("XDG_DATA_HOME", Path("home"));
    unsetenv("PYXISLOAD_FOLDER");
    fs::create_directories(folder / "elsewhere");
    fs::current_path(folder / "elsewhere");
  }
  ~ProgramFolderTest() override {
    unsetenv("XDG_DATA_HOME");
    unsetenv("PYXISLOAD_FOLDER");
    Set("HOME", home_);
    fs::current_path(before_);
  }
  static void Set(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }
  std::string Data(const std::string& prefix) const { return Path(prefix + "/share/pyxisload"); }
  void Install(const std::string& prefix) {
    for (const char* name :
         {"hwversion1.1/t.txt", "firmware48/a.nce", "metronom.ani", "samples/a.hex", "samples/b.hex"})
      WriteText(prefix + "/share/pyxisload/" + name, prefix);
  }
  std::string Text(const std::string& name) const {
    const Bytes bytes = Contents(name);
    return {bytes.begin(), bytes.end()};
  }
  std::set<std::string> Entries(const std::string& name) const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder / name)) names.insert(entry.path().filename().string());
    return names;
  }

 private:
  const std::string home_ = std::getenv("HOME") == nullptr ? "/" : std::getenv("HOME");
  const fs::path before_ = fs::current_path();
};

TEST_F(ProgramFolderTest, AFirstStartLinksTheDataAndLeavesRoomForImagesAmongTheSamples) {
  EXPECT_EQ(WindowFolder(Data("usr")).error, "");
  EXPECT_EQ(WindowFolder(Data("usr")).path, Path("home/pyxisload"));
  EXPECT_EQ(Text("home/pyxisload/hwversion1.1/t.txt"), "usr");
  for (const char* name : {"hwversion1.1", "firmware48", "metronom.ani", "samples/a.hex"})
    EXPECT_EQ(fs::read_symlink(folder / "home/pyxisload" / name), Data("usr") + "/" + name);
  WriteText("home/pyxisload/samples/a.bin", "image");
  EXPECT_EQ(Entries("usr/share/pyxisload/samples"), (std::set<std::string>{"a.hex", "b.hex"}));
}

TEST_F(ProgramFolderTest, AnUpdateRenewsTheLinksAndTouchesNothingOfTheUsers) {
  ASSERT_EQ(WindowFolder(Data("usr")).error, "");
  const fs::path home = folder / "home/pyxisload";
  WriteText("home/pyxisload/buffer_data.prog", "job");
  fs::remove(home / "metronom.ani");
  WriteText("home/pyxisload/metronom.ani", "own");
  fs::remove(home / "samples/b.hex");
  WriteText("home/pyxisload/samples/b.hex", "own");
  fs::create_symlink(Path("elsewhere/mine"), home / "mine");  // dead, and none of ours
  // The update adds, drops and moves.
  fs::rename(folder / "usr", folder / "opt");
  WriteText("opt/share/pyxisload/tin/x.tin", "new");
  WriteText("opt/share/pyxisload/samples/c.hex", "new");
  fs::remove_all(folder / "opt/share/pyxisload/firmware48");
  fs::remove(folder / "opt/share/pyxisload/samples/a.hex");
  ASSERT_EQ(WindowFolder(Data("opt")).error, "");
  EXPECT_EQ(Entries("home/pyxisload"),
            (std::set<std::string>{"buffer_data.prog", "hwversion1.1", "metronom.ani", "mine", "samples", "tin"}));
  EXPECT_EQ(Entries("home/pyxisload/samples"), (std::set<std::string>{"b.hex", "c.hex"}));
  EXPECT_EQ(fs::read_symlink(home / "hwversion1.1"), Data("opt") + "/hwversion1.1");
  for (const auto& [name, text] :
       Table<const char*, const char*>{{"buffer_data.prog", "job"}, {"metronom.ani", "own"}, {"samples/b.hex", "own"}})
    EXPECT_EQ(Text(std::string("home/pyxisload/") + name), text) << name;
  // Another installation beside one that stays.
  Install("usr");
  ASSERT_EQ(WindowFolder(Data("usr")).error, "");
  EXPECT_EQ(fs::read_symlink(home / "hwversion1.1"), Data("usr") + "/hwversion1.1");
}

// Also for root, who may write everywhere.
TEST_F(ProgramFolderTest, AFolderThatCantBeMadeIsNamedWithTheReason) {
  WriteText("home", "a file");
  EXPECT_EQ(WindowFolder(Data("usr")).error,
            "The program folder " + Path("home/pyxisload") + " can't be used: Not a directory.");
  EXPECT_TRUE(KeepCurrent("/proc", Data("usr")).starts_with("The program folder /proc can't be used: "));
  Set("PYXISLOAD_FOLDER", Path(std::string(250, 'x')));
  EXPECT_NE(RunnerFolder(Data("usr")).error.find("its path is too long"), std::string::npos);
}

TEST_F(ProgramFolderTest, WhichFolderARunTakes) {
  const std::string own = Path("home/pyxisload"), chosen = Path("chosen"), here = Path("elsewhere");
  const auto window = [this](bool installed) { return WindowFolder(installed ? Data("usr") : "").path; };
  const auto runner = [this](bool installed) { return RunnerFolder(installed ? Data("usr") : "").path; };
  EXPECT_EQ(All(window(false), runner(false)), All(here, here));  // nothing installed, no folder anywhere
  EXPECT_EQ(All(window(true), runner(true)), All(own, own));
  EXPECT_EQ(All(window(false), runner(false)), All(here, own));
  fs::create_directories(folder / "elsewhere/hwversion1.1");
  EXPECT_EQ(All(window(true), runner(true)), All(own, here));
  Set("PYXISLOAD_FOLDER", "../chosen/");
  EXPECT_EQ(WindowFolder("").error, chosen + " is no program folder.");
  EXPECT_EQ(All(window(true), runner(true), window(false), runner(false)), All(chosen, chosen, chosen, chosen));
  unsetenv("PYXISLOAD_FOLDER");
  fs::remove_all(folder / "elsewhere/hwversion1.1");
  Set("XDG_DATA_HOME", "relative");
  Set("HOME", Path("u"));
  EXPECT_EQ(UserFolder(), Path("u/.local/share/pyxisload"));
}

}  // namespace
}  // namespace pyxis::test
