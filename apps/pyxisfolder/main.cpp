// Makes a program folder of files, as a build does and the installed data is; or the program's icons.
#include <CLI/CLI.hpp>

#include "folder.h"
#include "pyxisfolder/drawing/pictures.h"
#include "system/broken_pipe.h"
#include "version/version.h"

int main(int argc, char** argv) {
  pyxis::IgnoreBrokenPipes();
  CLI::App app{"Makes a program folder: templates, firmware images, option lists, figures, cursors and sample files"};
  std::string directory;
  bool icons = false;
  app.set_version_flag("--version", std::string("pyxisfolder ") + pyxis::kVersion);
  app.add_flag("--icons", icons, "make the program's icons instead, in the folders of an icon theme");
  app.add_option("DIR", directory, "where; made if need be")->required();
  CLI11_PARSE(app, argc, argv);
  if (icons) return pyxis::folder::DrawIcons(directory) ? 0 : 1;
  const bool files = pyxis::folder::BuildProgramFolder(directory);
  return pyxis::folder::DrawPictures(directory) && files ? 0 : 1;
}
