#include "ui/x_cursor.h"

#include <X11/Xcursor/Xcursor.h>

#include <algorithm>
#include <memory>

namespace pyxis::ui {

namespace {

struct ImagesDestroyer {
  void operator()(XcursorImages* images) const { XcursorImagesDestroy(images); }
};

XcursorImage* MakeImage(const XCursorStep& step) {
  XcursorImage* image = XcursorImageCreate(step.width, step.height);
  if (image == nullptr) return nullptr;
  image->xhot = static_cast<XcursorDim>(step.hotX);
  image->yhot = static_cast<XcursorDim>(step.hotY);
  image->delay = step.ticks * 1000 / 60;  // milliseconds
  std::copy_n(step.pixels, step.width * step.height, image->pixels);
  return image;
}

}  // namespace

XCursorId MakeXCursor(void* display, std::span<const XCursorStep> steps) {
  auto* const xDisplay = static_cast<Display*>(display);
  if (!xDisplay || !XcursorSupportsARGB(xDisplay) || !XcursorSupportsAnim(xDisplay)) return 0;
  const std::unique_ptr<XcursorImages, ImagesDestroyer> images(XcursorImagesCreate(static_cast<int>(steps.size())));
  if (images == nullptr) return 0;
  for (const XCursorStep& step : steps) {
    XcursorImage* const image = MakeImage(step);
    if (image == nullptr) return 0;
    images->images[images->nimage++] = image;
  }
  return XcursorImagesLoadCursor(xDisplay, images.get());
}

void DefineXCursor(void* display, unsigned long window, XCursorId cursor) {
  auto* const xDisplay = static_cast<Display*>(display);
  XDefineCursor(xDisplay, window, cursor);
  XFlush(xDisplay);
}

}  // namespace pyxis::ui
