#include "ui/animated_cursor.h"

#include <QApplication>
#include <QPixmap>
#include <QWindow>
#include <algorithm>

#include "platform/files.h"
#include "ui/cursor_picture.h"
#include "view/ani_file.h"

namespace pyxis::ui {

namespace {

// The frames' pictures; none when one of them can't be read.
std::vector<CursorPicture> PicturesOf(const AnimatedCursor& cursor) {
  std::vector<CursorPicture> pictures;
  for (const auto frame : cursor.frames) {
    auto picture = ReadCursorPicture(frame);
    if (!picture) return {};
    pictures.push_back(*std::move(picture));
  }
  return pictures;
}

std::vector<XCursorStep> XStepsOf(const AnimatedCursor& cursor, const std::vector<CursorPicture>& pictures) {
  std::vector<XCursorStep> steps;
  for (const AnimatedCursor::Step& step : cursor.steps) {
    const auto& [image, hotSpot] = pictures[step.frame];
    steps.push_back({image.width(), image.height(), hotSpot.x(), hotSpot.y(),
                     reinterpret_cast<const std::uint32_t*>(image.constBits()), step.ticks});
  }
  return steps;
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
  const std::vector<CursorPicture> pictures = PicturesOf(*cursor);
  if (pictures.empty()) return 0;
  const auto found = std::find_if(loaded_.begin(), loaded_.end(), [&](const Cursor& c) { return c.path == path; });
  const CursorHandle handle = kFirstLoaded + static_cast<CursorHandle>(found - loaded_.begin());
  if (found == loaded_.end()) {
    const auto& [image, hotSpot] = pictures[cursor->steps.front().frame];
    loaded_.push_back({path, QCursor(QPixmap::fromImage(image), hotSpot.x(), hotSpot.y()),
                       MakeXCursor(XDisplay(), XStepsOf(*cursor, pictures))});
  }
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
