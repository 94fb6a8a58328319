// Where an installed program finds its data and libraries, and which program folder it runs in. An ordinary user has
// one of his own, made of links to the installed data; his work files lie beside the links.
#pragma once

#include <string>

namespace pyxis {

// The folders of templates, one a hardware revision.
inline constexpr char kHwFolder10[] = "hwversion1.0";
inline constexpr char kHwFolder11[] = "hwversion1.1";  // with a DAC board

// The installed data (templates, firmware images, option lists, figures, cursors, samples), share/pyxisload; empty for
// a program that runs where it was built.
std::string InstalledData();

// Whether the file lies among the installed data, also through a link.
bool IsInstalledData(const std::string& path);

// Where the access library and the update agent lie: lib/pyxisload, or beside a program that runs where it was built.
std::string LibraryDirectory();

bool IsProgramFolder(const std::string& directory);

// $PYXISLOAD_FOLDER, else $XDG_DATA_HOME/pyxisload; absolute.
std::string UserFolder();

// Makes `folder` of links to `data`, or brings its links up to date. What isn't a link to installed data is the user's
// and stays. Gives what went wrong in words; nothing when all is well.
std::string KeepCurrent(const std::string& folder, const std::string& data);

struct ProgramFolder {
  std::string path;
  std::string error;  // why there is none, in words
};
// The window's: the user's, kept current; the current directory where nothing is installed.
ProgramFolder WindowFolder(const std::string& data = InstalledData());
// The job runner's: as the window's, but the current directory comes first when it is a program folder.
ProgramFolder RunnerFolder(const std::string& data = InstalledData());

}  // namespace pyxis
