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

using Uses = std::unordered_map<std::uint32_t, std::size_t>;  // of a colour; later its place in the palette

// The colours that are kept when two of at most that distance count as one, the most used first. Stops above 256.
std::vector<std::uint32_t> Choose(const std::vector<std::pair<std::size_t, std::uint32_t>>& ranked, int distance) {
  std::vector<std::uint32_t> kept;
  for (const auto& [count, key] : ranked) {
    if (kept.size() > kColors) break;
    if (std::none_of(kept.begin(), kept.end(), [&, k = key](auto other) { return DistanceOf(other, k) <= distance; }))
      kept.push_back(key);
  }
  return kept;
}

std::size_t NearestOf(const std::vector<std::uint32_t>& colors, std::uint32_t key) {
  const auto nearest = std::min_element(colors.begin(), colors.end(),
                                        [=](auto a, auto b) { return DistanceOf(a, key) < DistanceOf(b, key); });
  return static_cast<std::size_t>(nearest - colors.begin());
}

// All colours when they are few enough; else ever larger differences are given up.
std::vector<std::uint32_t> ChooseColors(Uses& uses) {
  std::vector<std::pair<std::size_t, std::uint32_t>> ranked;
  for (const auto& [key, count] : uses) ranked.emplace_back(count, key);
  std::sort(ranked.rbegin(), ranked.rend());
  std::vector<std::uint32_t> kept;
  int step = 0;
  do kept = Choose(ranked, 3 * step * step);
  while (++step, kept.size() > kColors);
  for (auto& [key, place] : uses) place = NearestOf(kept, key);
  return kept;
}

// The pixels' colours, and each pixel as its colour's place in them; lines from the bottom up.
Palette MakePalette(const Canvas& picture) {
  std::vector<std::uint32_t> pixels;
  pixels.reserve(static_cast<std::size_t>(picture.Width()) * static_cast<std::size_t>(picture.Height()));
  for (int y = picture.Height() - 1; y >= 0; --y)
    for (int x = 0; x < picture.Width(); ++x) pixels.push_back(KeyOf(picture.At(x, y)));
  // One look-up a run.
  Uses uses;
  const auto forEachRun = [&](auto use) {
    for (std::size_t at = 0; at < pixels.size();) {
      const std::size_t start = at;
      while (at < pixels.size() && pixels[at] == pixels[start]) ++at;
      use(uses[pixels[start]], at - start);
    }
  };
  forEachRun([](std::size_t& count, std::size_t length) { count += length; });
  Palette palette{ChooseColors(uses), {}};
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
