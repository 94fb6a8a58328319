#include "pyxisfolder/drawing/byte_writer.h"
#include "pyxisfolder/drawing/picture_files.h"

namespace pyxis::folder {

namespace {

constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kDirectory = 6, kDirectoryEntry = 16;
enum class Kind { Icon = 1, Cursor = 2 };

std::size_t LineOfMask(int width) { return static_cast<std::size_t>((width + 31) / 32) * 4; }

// The picture as a bitmap without file header, twice as high as it is: the pixels, then the mask, from the bottom up.
Bytes BitmapOf(const Canvas& picture) {
  const auto width = static_cast<std::size_t>(picture.Width()), height = static_cast<std::size_t>(picture.Height());
  ByteWriter out;
  out.Le32(kInfoHeader).Le32(width).Le32(2 * height).Le16(1).Le16(32).Le32(0);
  out.Le32(4 * width * height + LineOfMask(picture.Width()) * height).Le32(0).Le32(0).Le32(0).Le32(0);
  for (int y = picture.Height() - 1; y >= 0; --y)
    for (int x = 0; x < picture.Width(); ++x) {
      const Color c = picture.At(x, y);
      out.Byte(c.b).Byte(c.g).Byte(c.r).Byte(c.a);
    }
  for (int y = picture.Height() - 1; y >= 0; --y) {
    Bytes line(LineOfMask(picture.Width()));
    for (int x = 0; x < picture.Width(); ++x)
      if (picture.At(x, y).a < 128)
        line[static_cast<std::size_t>(x) / 8] =
            static_cast<std::uint8_t>(line[static_cast<std::size_t>(x) / 8] | (0x80 >> (x % 8)));
    out.Append(line);
  }
  return out.Take();
}

Bytes MakeDirectory(Kind kind, std::span<const CursorImage> images) {
  ByteWriter out;
  out.Le16(0).Le16(static_cast<std::size_t>(kind)).Le16(images.size());
  std::vector<Bytes> bitmaps;
  std::size_t at = kDirectory + kDirectoryEntry * images.size();
  for (const CursorImage& image : images) {
    bitmaps.push_back(BitmapOf(image.picture));
    // A size of 256 is written as 0.
    out.Byte(static_cast<std::size_t>(image.picture.Width()))
        .Byte(static_cast<std::size_t>(image.picture.Height()))
        .Le16(0);
    if (kind == Kind::Cursor) {
      out.Le16(static_cast<std::size_t>(image.hotX)).Le16(static_cast<std::size_t>(image.hotY));
    } else {
      out.Le16(1).Le16(32);
    }
    out.Le32(bitmaps.back().size()).Le32(at);
    at += bitmaps.back().size();
  }
  for (const Bytes& bitmap : bitmaps) out.Append(bitmap);
  return out.Take();
}

// Its data begins on an even place; an odd length is filled up.
Bytes Chunk(std::string_view kind, const Bytes& data) {
  ByteWriter out;
  out.Text(kind).Le32(data.size()).Append(data);
  if (data.size() % 2 != 0) out.Byte(0);
  return out.Take();
}

constexpr std::size_t kAniHeader = 36;
constexpr std::size_t kFramesAreIcons = 1, kHasSequence = 2;  // flags

}  // namespace

Bytes MakeIcon(std::span<const CursorImage> images) { return MakeDirectory(Kind::Icon, images); }

Bytes MakeCursor(const CursorImage& image) { return MakeDirectory(Kind::Cursor, std::span(&image, 1)); }

Bytes MakeAni(const Animation& animation) {
  const bool ordered = !animation.sequence.empty();
  ByteWriter header;
  header.Le32(kAniHeader).Le32(animation.frames.size());
  header.Le32(ordered ? animation.sequence.size() : animation.frames.size());
  header.Le32(0).Le32(0).Le32(0).Le32(0);  // size and depth stand in the frames
  header.Le32(static_cast<std::size_t>(animation.ticks)).Le32(kFramesAreIcons | (ordered ? kHasSequence : 0));
  ByteWriter form;
  form.Text("ACON").Append(Chunk("anih", header.Take()));
  if (ordered) {
    ByteWriter sequence;
    for (const std::uint8_t frame : animation.sequence) sequence.Le32(frame);
    form.Append(Chunk("seq ", sequence.Take()));
  }
  ByteWriter frames;
  frames.Text("fram");
  for (const CursorImage& frame : animation.frames) frames.Append(Chunk("icon", MakeCursor(frame)));
  form.Append(Chunk("LIST", frames.Take()));
  return Chunk("RIFF", form.Take());
}

}  // namespace pyxis::folder
