#include "ui/x_cursor.h"

#include <X11/Xcursor/Xcursor.h>

#include <cstdint>
#include <memory>

#include "view/ani_file.h"

namespace pyxis::ui {

namespace {

struct ImagesDestroyer {
  void operator()(XcursorImages* images) const { XcursorImagesDestroy(images); }
};

// The server takes colours multiplied by their alpha.
XcursorPixel Multiplied(std::uint32_t argb) {
  const std::uint32_t alpha = argb >> 24;
  XcursorPixel pixel = alpha << 24;
  for (const int shift : {0, 8, 16}) pixel |= (((argb >> shift) & 0xFF) * alpha + 127) / 255 << shift;
  return pixel;
}

XcursorImage* MakeImage(const CursorPicture& picture, std::uint32_t ticks) {
  XcursorImage* image = XcursorImageCreate(picture.width, picture.height);
  if (image == nullptr) return nullptr;
  image->xhot = static_cast<XcursorDim>(picture.hotX);
  image->yhot = static_cast<XcursorDim>(picture.hotY);
  image->delay = ticks * 1000 / 60;  // milliseconds
  for (std::size_t i = 0; i < picture.argb.size(); ++i) image->pixels[i] = Multiplied(picture.argb[i]);
  return image;
}

}  // namespace

XCursorId MakeXCursor(void* display, const AnimatedCursor& cursor) {
  auto* const xDisplay = static_cast<Display*>(display);
  if (xDisplay == nullptr || XcursorSupportsARGB(xDisplay) == 0 || XcursorSupportsAnim(xDisplay) == 0) return 0;
  const std::unique_ptr<XcursorImages, ImagesDestroyer> images(
      XcursorImagesCreate(static_cast<int>(cursor.steps.size())));
  if (images == nullptr) return 0;
  for (const AnimatedCursor::Step& step : cursor.steps) {
    XcursorImage* const image = MakeImage(cursor.frames[step.frame], step.ticks);
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
