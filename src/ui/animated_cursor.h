// The busy cursor from an animated cursor file. It is one for all windows. On an X server it moves; elsewhere, and on a
// server that can't, its first step stands still, since no timer runs during an operation.
#pragma once

#include <QCursor>
#include <string>
#include <vector>

#include "platform/operator.h"
#include "ui/x_cursor.h"

namespace pyxis::ui {

class BusyCursors {
 public:
  // 0 when the file is missing or no cursor. A file is kept from its first load on.
  CursorHandle Load(const std::string& path);
  // Makes it the cursor and returns the one in force before; that of a program at rest has a handle too. A handle that
  // isn't known changes nothing.
  CursorHandle Set(CursorHandle handle);

  // While one lives, the arrow shows in place of a busy cursor: a window of its own asks something of the operator.
  class Pause {
   public:
    explicit Pause(const BusyCursors& cursors);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    const BusyCursors& cursors_;
    bool overrides_;
  };

 private:
  struct Cursor {
    std::string path;
    QCursor still;
    XCursorId moving;
  };
  static constexpr CursorHandle kAtRest = 1, kFirstLoaded = 2;

  bool IsBusy() const { return current_ >= kFirstLoaded; }
  const Cursor& Current() const { return loaded_[static_cast<std::size_t>(current_ - kFirstLoaded)]; }
  void Animate() const;

  std::vector<Cursor> loaded_;
  CursorHandle current_ = kAtRest;
};

}  // namespace pyxis::ui
