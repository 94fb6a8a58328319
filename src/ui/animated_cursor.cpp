#include "ui/animated_cursor.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QWindow>
#include <algorithm>

#include "platform/files.h"
#include "view/ani_file.h"

namespace pyxis::ui {

namespace {

QCursor StillCursor(const AnimatedCursor& cursor) {
  const CursorPicture& picture = cursor.frames[cursor.steps.front().frame];
  QImage image(picture.width, picture.height, QImage::Format_ARGB32);
  for (int y = 0; y < picture.height; ++y) {
    const auto line = picture.argb.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    std::copy(line, line + picture.width, reinterpret_cast<std::uint32_t*>(image.scanLine(y)));
  }
  return QCursor(QPixmap::fromImage(image), picture.hotX, picture.hotY);
}

// Xlib's display, or null on another window system.
void* XDisplay() {
#if QT_CONFIG(xcb)
  if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) return x11->display();
#endif
  return nullptr;
}

}  // namespace

CursorHandle BusyCursors::Load(const std::string& path) {
  const auto bytes = ReadWholeFile(path);
  const auto cursor = bytes ? ReadAni(*bytes) : std::nullopt;
  if (!cursor) return 0;
  const auto found = std::find_if(loaded_.begin(), loaded_.end(), [&](const Cursor& c) { return c.path == path; });
  const CursorHandle handle = kFirstLoaded + static_cast<CursorHandle>(found - loaded_.begin());
  if (found == loaded_.end()) loaded_.push_back({path, StillCursor(*cursor), MakeXCursor(XDisplay(), *cursor)});
  return handle;
}

CursorHandle BusyCursors::Set(CursorHandle handle) {
  const CursorHandle previous = current_;
  const bool known =
      handle == kAtRest || (handle >= kFirstLoaded && handle - kFirstLoaded < static_cast<int>(loaded_.size()));
  if (!known || handle == current_) return previous;
  if (IsBusy()) QApplication::restoreOverrideCursor();
  current_ = handle;
  if (IsBusy()) QApplication::setOverrideCursor(Current().still);
  Animate();
  return previous;
}

// Behind Qt's back: it has given its windows the still cursor, and does so again only when its own cursor changes.
void BusyCursors::Animate() const {
  if (!IsBusy() || Current().moving == 0) return;
  for (const QWindow* window : QGuiApplication::topLevelWindows())
    if (window->handle() != nullptr) DefineXCursor(XDisplay(), window->winId(), Current().moving);
}

BusyCursors::Pause::Pause(const BusyCursors& cursors) : cursors_(cursors), overrides_(cursors.IsBusy()) {
  if (overrides_) QApplication::setOverrideCursor(Qt::ArrowCursor);
}

BusyCursors::Pause::~Pause() {
  if (!overrides_) return;
  QApplication::restoreOverrideCursor();
  cursors_.Animate();
}

}  // namespace pyxis::ui
