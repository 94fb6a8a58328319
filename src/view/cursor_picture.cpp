#include "view/cursor_picture.h"

#include <algorithm>

#include "platform/byte_order.h"

namespace pyxis {

namespace {

using Bytes = std::span<const std::uint8_t>;

// The file: reserved, type, count, 16 bits each, then an entry a picture.
constexpr std::size_t kDirectorySize = 6;
constexpr std::uint16_t kIconType = 1, kCursorType = 2;
// An entry: width, height, colours, reserved, hot spot (two 16-bit values), size and offset of the bitmap (32 bits
// each).
constexpr std::size_t kEntrySize = 16;
constexpr std::size_t kHotX = 4, kHotY = 6, kBitmapSize = 8, kBitmapOffset = 12;

// The bitmap: its header, colours of 4 bytes, the pixels, the mask. Both are lines from the bottom up, of whole 32
// bits.
constexpr std::size_t kSmallestHeader = 40, kLargestHeader = 124;
constexpr std::size_t kWidth = 4, kDoubleHeight = 8, kBits = 14, kCompression = 16, kColorsUsed = 32;
constexpr std::uint32_t kLargestSide = 256;

constexpr std::uint32_t kOpaque = 0xFF000000;

struct Bitmap {
  std::uint32_t width, height, bits;
  Bytes colors, pixels, mask;  // the mask is empty when the file ends before it
};

std::size_t LineSize(std::uint32_t width, std::uint32_t bits) { return (width * bits + 31) / 32 * 4; }

// Takes `count` bytes off the front, or all when there are fewer.
Bytes Take(Bytes& rest, std::size_t count) {
  const Bytes taken = rest.first(std::min(count, rest.size()));
  rest = rest.subspan(taken.size());
  return taken;
}

std::optional<Bitmap> SplitBitmap(Bytes data) {
  if (data.size() < kSmallestHeader) return std::nullopt;
  const std::uint32_t headerSize = LoadLe32(data.data());
  if (headerSize < kSmallestHeader || headerSize > kLargestHeader || LoadLe32(&data[kCompression]) != 0)
    return std::nullopt;
  Bitmap bitmap{LoadLe32(&data[kWidth]), LoadLe32(&data[kDoubleHeight]) / 2, LoadLe16(&data[kBits]), {}, {}, {}};
  constexpr std::uint32_t kKnownBits[] = {1, 4, 8, 24, 32};
  if (bitmap.width < 1 || bitmap.width > kLargestSide || bitmap.height < 1 || bitmap.height > kLargestSide ||
      std::find(std::begin(kKnownBits), std::end(kKnownBits), bitmap.bits) == std::end(kKnownBits))
    return std::nullopt;
  std::uint32_t colors = LoadLe32(&data[kColorsUsed]);
  if (bitmap.bits <= 8) {
    const std::uint32_t most = 1U << bitmap.bits;
    if (colors > most) return std::nullopt;
    if (colors == 0) colors = most;
  } else if (colors > 256) {
    return std::nullopt;
  }
  Bytes rest = data;
  Take(rest, headerSize);
  bitmap.colors = Take(rest, 4 * colors);
  const std::size_t pixels = LineSize(bitmap.width, bitmap.bits) * bitmap.height;
  if (rest.size() < pixels) return std::nullopt;
  bitmap.pixels = Take(rest, pixels);
  const std::size_t mask = LineSize(bitmap.width, 1) * bitmap.height;
  if (rest.size() >= mask) bitmap.mask = rest.first(mask);
  return bitmap;
}

// A line of a bitmap that stands upside down; y from the top.
const std::uint8_t* LineOf(Bytes lines, const Bitmap& bitmap, std::uint32_t bits, std::uint32_t y) {
  return lines.data() + LineSize(bitmap.width, bits) * (bitmap.height - 1 - y);
}

// The colour of a pixel, with its alpha only where the bitmap has one.
std::uint32_t ColorAt(const Bitmap& bitmap, std::uint32_t x, std::uint32_t y) {
  const std::uint8_t* line = LineOf(bitmap.pixels, bitmap, bitmap.bits, y);
  if (bitmap.bits == 32) return LoadLe32(line + 4 * x);
  if (bitmap.bits == 24) return LoadLe16(line + 3 * x) | (std::uint32_t{line[3 * x + 2]} << 16);
  const std::uint32_t perByte = 8 / bitmap.bits;
  const std::uint32_t shift = 8 - bitmap.bits * (x % perByte + 1);  // the first pixel is in the high bits
  const std::size_t index = (std::uint32_t{line[x / perByte]} >> shift) & ((1U << bitmap.bits) - 1);
  return 4 * index + 4 <= bitmap.colors.size() ? LoadLe32(&bitmap.colors[4 * index]) & ~kOpaque : 0;
}

bool IsMasked(const Bitmap& bitmap, std::uint32_t x, std::uint32_t y) {
  return ((LineOf(bitmap.mask, bitmap, 1, y)[x / 8] << (x % 8)) & 0x80) != 0;
}

std::optional<std::vector<std::uint32_t>> PixelsOf(const Bitmap& bitmap) {
  std::vector<std::uint32_t> argb;
  std::uint32_t all = 0;
  for (std::uint32_t y = 0; y < bitmap.height; ++y)
    for (std::uint32_t x = 0; x < bitmap.width; ++x) all |= argb.emplace_back(ColorAt(bitmap, x, y));
  // Without any alpha the mask tells what is see-through.
  if ((all & kOpaque) != 0) return argb;
  if (bitmap.mask.empty()) return std::nullopt;
  for (std::uint32_t y = 0; y < bitmap.height; ++y)
    for (std::uint32_t x = 0; x < bitmap.width; ++x) {
      std::uint32_t& pixel = argb[y * bitmap.width + x];
      if (!IsMasked(bitmap, x, y)) {
        pixel |= kOpaque;
      } else if (pixel != 0) {
        pixel = kOpaque;  // would invert the screen
      }
    }
  return argb;
}

}  // namespace

std::optional<CursorPicture> ReadCursorPicture(Bytes file) {
  if (file.size() < kDirectorySize + kEntrySize || LoadLe16(&file[0]) != 0 || LoadLe16(&file[4]) == 0)
    return std::nullopt;
  const std::uint16_t type = LoadLe16(&file[2]);
  if (type != kIconType && type != kCursorType) return std::nullopt;
  const Bytes entry = file.subspan(kDirectorySize, kEntrySize);
  const std::size_t size = LoadLe32(&entry[kBitmapSize]), offset = LoadLe32(&entry[kBitmapOffset]);
  if (offset > file.size() || size > file.size() - offset) return std::nullopt;
  const auto bitmap = SplitBitmap(file.subspan(offset, size));
  if (!bitmap) return std::nullopt;
  auto argb = PixelsOf(*bitmap);
  if (!argb) return std::nullopt;
  const int width = static_cast<int>(bitmap->width), height = static_cast<int>(bitmap->height);
  const int hotX = type == kIconType ? width / 2 : LoadLe16(&entry[kHotX]);
  const int hotY = type == kIconType ? height / 2 : LoadLe16(&entry[kHotY]);
  return CursorPicture{width, height, std::min(hotX, width - 1), std::min(hotY, height - 1), *std::move(argb)};
}

}  // namespace pyxis
