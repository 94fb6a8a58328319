#include "ui/cursor_picture.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

#include "platform/byte_order.h"

namespace pyxis::ui {

namespace {

constexpr int kLargestSide = 256;

// Qt reads a cursor as an icon and leaves out where it points to: the type, and the hot spot in the first entry.
constexpr std::size_t kType = 2, kHotX = 10, kHotY = 12;
constexpr std::uint16_t kCursorType = 2;

QPoint HotSpotOf(std::span<const std::uint8_t> file, const QSize& size) {
  if (LoadLe16(&file[kType]) != kCursorType) return {size.width() / 2, size.height() / 2};
  return {std::min<int>(LoadLe16(&file[kHotX]), size.width() - 1),
          std::min<int>(LoadLe16(&file[kHotY]), size.height() - 1)};
}

}  // namespace

std::optional<CursorPicture> ReadCursorPicture(std::span<const std::uint8_t> file) {
  QByteArray bytes(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size()));
  QBuffer buffer(&bytes);
  const QImage image = QImageReader(&buffer, "ico").read();
  if (image.isNull() || std::max(image.width(), image.height()) > kLargestSide) return std::nullopt;
  return CursorPicture{image.convertToFormat(QImage::Format_ARGB32_Premultiplied), HotSpotOf(file, image.size())};
}

}  // namespace pyxis::ui
