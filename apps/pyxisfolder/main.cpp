// Makes a program folder: pyxisfolder DIR.
#include <cstdio>

#include "folder.h"
#include "pyxisfolder/drawing/pictures.h"
#include "system/broken_pipe.h"

int main(int argc, char** argv) {
  pyxis::IgnoreBrokenPipes();
  if (argc != 2) {
    std::fprintf(stderr, "usage: pyxisfolder DIR\n");
    return 2;
  }
  const bool files = pyxis::folder::BuildProgramFolder(argv[1]);
  return pyxis::folder::DrawPictures(argv[1]) && files ? 0 : 1;
}
