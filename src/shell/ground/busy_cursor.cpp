#include "shell/ground/busy_cursor.h"

#include "platform/machine.h"

namespace pyxis {

BusyCursor::BusyCursor(const char* fileName, const std::string& folder) {
  Cursors& cursors = TheAppState().cursors;
  cursors.BusyCursor = TheMachine().op->LoadCursorFromFile(folder + fileName);
  if (cursors.BusyCursor != 0) cursors.PreviousCursor = TheMachine().op->SetCursor(cursors.BusyCursor);
}

BusyCursor::~BusyCursor() {
  Cursors& cursors = TheAppState().cursors;
  if (cursors.BusyCursor == 0 || cursors.PreviousCursor == 0) return;
  TheMachine().op->SetCursor(cursors.PreviousCursor);
  cursors.PreviousCursor = 0;
}

}  // namespace pyxis
