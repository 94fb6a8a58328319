#include <algorithm>
#include <unordered_map>

#include "pyxisfolder/drawing/byte_writer.h"
#include "pyxisfolder/drawing/picture_files.h"

namespace pyxis::folder {

namespace {

constexpr std::size_t kColors = 256;
constexpr std::size_t kFileHeader = 14, kInfoHeader = 40;
constexpr std::size_t kRunLengthCoded = 1;  // biCompression: 8 bits a pixel, runs
constexpr std::size_t kLongestRun = 255;

std::uint32_t KeyOf(Color c) { return (std::uint32_t{c.r} << 16) | (std::uint32_t{c.g} << 8) | c.b; }

int DistanceOf(std::uint32_t a, std::uint32_t b) {
  int sum = 0;
  for (const int shift : {0, 8, 16}) {
    const int difference = static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF);
    sum += difference * difference;
  }
  return sum;
}

struct Palette {
  std::vector<std::uint32_t> colors;  // 0x00RRGGBB
  std::vector<std::uint8_t> index;    // of each pixel
};

std::size_t NearestOf(const std::vector<std::uint32_t>& colors, std::uint32_t key) {
  const auto nearest = std::min_element(colors.begin(), colors.end(),
                                        [=](auto a, auto b) { return DistanceOf(a, key) < DistanceOf(b, key); });
  return static_cast<std::size_t>(nearest - colors.begin());
}

// The pixels' colours, and each pixel as its colour's place in them; lines from the bottom up.
Palette MakePalette(const Canvas& picture) {
  std::vector<std::uint32_t> pixels;
  pixels.reserve(static_cast<std::size_t>(picture.Width()) * static_cast<std::size_t>(picture.Height()));
  for (int y = picture.Height() - 1; y >= 0; --y)
    for (int x = 0; x < picture.Width(); ++x) pixels.push_back(KeyOf(picture.At(x, y)));
  // One look-up a run.
  std::unordered_map<std::uint32_t, std::size_t> uses;
  const auto forEachRun = [&](auto use) {
    for (std::size_t at = 0; at < pixels.size();) {
      const std::size_t start = at;
      while (at < pixels.size() && pixels[at] == pixels[start]) ++at;
      use(uses[pixels[start]], at - start);
    }
  };
  forEachRun([](std::size_t& count, std::size_t length) { count += length; });
  std::vector<std::pair<std::size_t, std::uint32_t>> ranked;
  for (const auto& [key, count] : uses) ranked.emplace_back(count, key);
  std::sort(ranked.rbegin(), ranked.rend());
  Palette palette;
  for (const auto& [count, key] : ranked) {
    uses[key] = palette.colors.size() < kColors ? palette.colors.size() : NearestOf(palette.colors, key);
    if (palette.colors.size() < kColors) palette.colors.push_back(key);
  }
  forEachRun([&](std::size_t color, std::size_t length) {
    palette.index.insert(palette.index.end(), length, static_cast<std::uint8_t>(color));
  });
  return palette;
}

// Each run is a count and a colour, 0 0 ends a line, 0 1 the picture.
Bytes CodeLines(const std::vector<std::uint8_t>& index, std::size_t width) {
  ByteWriter out;
  for (std::size_t line = 0; line < index.size(); line += width) {
    for (std::size_t at = line; at < line + width;) {
      const std::size_t start = at;
      while (at < line + width && at - start < kLongestRun && index[at] == index[start]) ++at;
      out.Byte(at - start).Byte(index[start]);
    }
    out.Byte(0).Byte(line + width == index.size() ? 1 : 0);
  }
  return out.Take();
}

}  // namespace

Bytes MakeBmp(const Canvas& picture) {
  const Palette palette = MakePalette(picture);
  const Bytes lines = CodeLines(palette.index, static_cast<std::size_t>(picture.Width()));
  const std::size_t start = kFileHeader + kInfoHeader + 4 * palette.colors.size();
  ByteWriter out;
  out.Text("BM").Le32(start + lines.size()).Le32(0).Le32(start);
  out.Le32(kInfoHeader)
      .Le32(static_cast<std::size_t>(picture.Width()))
      .Le32(static_cast<std::size_t>(picture.Height()));
  out.Le16(1).Le16(8).Le32(kRunLengthCoded).Le32(lines.size());
  out.Le32(0).Le32(0).Le32(palette.colors.size()).Le32(0);
  for (const std::uint32_t color : palette.colors) out.Le32(color);
  return out.Append(lines).Take();
}

}  // namespace pyxis::folder
