#include "pyxisfolder/drawing/picture_files.h"

#include <QBuffer>
#include <QHash>
#include <QtEndian>
#include <algorithm>

namespace pyxis::folder {

namespace {

// Fields of a file, low byte first.
template <typename Field>
QByteArray LittleEndian(qsizetype value) {
  QByteArray bytes(sizeof(Field), '\0');
  qToLittleEndian(static_cast<Field>(value), bytes.data());
  return bytes;
}
QByteArray Le16(qsizetype value) { return LittleEndian<quint16>(value); }
QByteArray Le32(qsizetype value) { return LittleEndian<quint32>(value); }

// Places in a bitmap file.
constexpr qsizetype kFileSize = 2, kPixelOffset = 10, kCompression = 30, kPixelSize = 34;
constexpr qsizetype kRunLengthCoded = 1;  // 8 bits a pixel, runs
constexpr qsizetype kLongestRun = 255, kColors = 256;

// The most used colours, as many as a bitmap of 8 bits a pixel has.
QList<QRgb> ColorsOf(const QImage& picture) {
  QHash<QRgb, qsizetype> uses;
  for (int y = 0; y < picture.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (const QRgb *at = line, *end = line + picture.width(); at != end;) {
      const QRgb* run = std::find_if(at, end, [at](QRgb other) { return other != *at; });
      uses[*at] += run - at;
      at = run;
    }
  }
  std::vector<std::pair<qsizetype, QRgb>> ranked;
  for (auto use = uses.cbegin(); use != uses.cend(); ++use) ranked.emplace_back(use.value(), use.key());
  std::sort(ranked.rbegin(), ranked.rend());
  ranked.resize(kColors);
  QList<QRgb> colors;
  for (const auto& [count, color] : ranked) colors << color;
  return colors;
}

// Lines from the bottom up. Each run is a count and a colour, 0 0 ends a line, 0 1 the picture.
QByteArray RunsOf(const QImage& indexed) {
  QByteArray runs;
  for (int y = indexed.height() - 1; y >= 0; --y) {
    const uchar* at = indexed.constScanLine(y);
    for (const uchar* const end = at + indexed.width(); at != end;) {
      const uchar* const most = at + std::min<qsizetype>(end - at, kLongestRun);
      const uchar* const run = std::find_if(at, most, [at](uchar other) { return other != *at; });
      runs.append(static_cast<char>(run - at)).append(static_cast<char>(*at));
      at = run;
    }
    runs.append('\0').append(y == 0 ? '\1' : '\0');
  }
  return runs;
}

// Of an icon file: its header, and a directory entry a picture.
constexpr qsizetype kDirectory = 6, kEntry = 16;
constexpr qsizetype kType = 2, kHotX = kDirectory + 4, kHotY = kDirectory + 6;

// Qt writes icons; a cursor is an icon of another type, with its hot spot in the entry.
QByteArray MakeCursor(const QImage& picture) {
  return Saved(picture, "ICO")
      .replace(kType, 2, Le16(2))
      .replace(kHotX, 2, Le16(picture.width() / 2))
      .replace(kHotY, 2, Le16(picture.height() / 2));
}

// Its data begins on an even place; an odd length is filled up.
QByteArray Chunk(const char* kind, const QByteArray& data) {
  return kind + Le32(data.size()) + data + QByteArray(data.size() % 2, '\0');
}

constexpr qsizetype kAniHeader = 36;
constexpr qsizetype kFramesAreIcons = 1, kHasSequence = 2;  // flags

}  // namespace

QByteArray Saved(const QImage& picture, const char* format) {
  QBuffer out;
  out.open(QIODevice::WriteOnly);
  picture.save(&out, format);
  return out.data();
}

QByteArray MakeBmp(const QImage& picture) {
  const QImage indexed = picture.convertToFormat(QImage::Format_Indexed8, ColorsOf(picture));
  const QByteArray plain = Saved(indexed, "BMP"), runs = RunsOf(indexed);
  QByteArray file = plain.first(qFromLittleEndian<qint32>(plain.data() + kPixelOffset)) + runs;
  return file.replace(kFileSize, 4, Le32(file.size()))
      .replace(kCompression, 4, Le32(kRunLengthCoded))
      .replace(kPixelSize, 4, Le32(runs.size()));
}

// Qt writes icons of one picture only. The pictures of this one are PNGs; a side of 256 pixels is written as 0.
QByteArray MakeIcon(std::span<const QImage> pictures) {
  const auto count = static_cast<qsizetype>(pictures.size());
  QByteArray entries, files;
  for (const QImage& picture : pictures) {
    const QByteArray file = Saved(picture, "PNG");
    const auto side = [](int pixels) { return QByteArray(1, static_cast<char>(pixels % 256)); };
    entries += side(picture.width()) + side(picture.height()) + Le16(0) + Le16(1) + Le16(32) + Le32(file.size()) +
               Le32(kDirectory + kEntry * count + files.size());
    files += file;
  }
  return Le16(0) + Le16(1) + Le16(count) + entries + files;
}

QByteArray MakeAni(const Animation& animation) {
  const auto frameCount = static_cast<qsizetype>(animation.frames.size());
  QByteArray sequence, frames;
  for (const int frame : animation.sequence) sequence += Le32(frame);
  for (const QImage& frame : animation.frames) frames += Chunk("icon", MakeCursor(frame));
  const bool ordered = !sequence.isEmpty();
  const QByteArray header = Le32(kAniHeader) + Le32(frameCount) + Le32(ordered ? sequence.size() / 4 : frameCount) +
                            QByteArray(16, '\0') +  // size and depth stand in the frames
                            Le32(animation.ticks) + Le32(kFramesAreIcons | (ordered ? kHasSequence : 0));
  return Chunk("RIFF", "ACON" + Chunk("anih", header) + (ordered ? Chunk("seq ", sequence) : QByteArray()) +
                           Chunk("LIST", "fram" + frames));
}

}  // namespace pyxis::folder
