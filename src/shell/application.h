// The application object: it opens the link before any window exists, and closes it when the main window has ended.
#pragma once

namespace pyxis {

class CPyxisLoadApp {
 public:
  // A failed search for the writer doesn't stop the program.
  void InitInstance();
  void ExitInstance();
};

}  // namespace pyxis
