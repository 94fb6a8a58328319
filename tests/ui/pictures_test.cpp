// The program folder's picture files, read by Qt's own readers.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QImageReader>

#include "pyxisfolder/drawing/cursors.h"
#include "pyxisfolder/drawing/figure.h"

namespace pyxis::test {
namespace {

using folder::Canvas;
using folder::Color;

QByteArray BytesOf(const folder::Bytes& file) {
  return {reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size())};
}

// The largest difference of a colour; -1 when the sizes differ.
int DifferenceOf(const QImage& image, const Canvas& drawn) {
  if (image.width() != drawn.Width() || image.height() != drawn.Height()) return -1;
  int most = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor read = image.pixelColor(x, y);
      const Color c = drawn.At(x, y);
      if (c.a == 0 && read.alpha() == 0) continue;
      for (const int difference : {read.red() - c.r, read.green() - c.g, read.blue() - c.b, read.alpha() - c.a})
        most = std::max(most, std::abs(difference));
    }
  return most;
}

TEST(Pictures, BitmapsKeepEveryPixel) {
  // 300 equal pixels and an odd end: longer than one run.
  Canvas few(301, 3, 1, {255, 255, 255});
  few.Rect({300, 1}, 1, 1, {200, 0, 0});
  few.Rect({0, 2}, 2, 1, {0, 10, 250});
  EXPECT_EQ(DifferenceOf(QImage::fromData(BytesOf(folder::MakeBmp(few))), few), 0);
  // More than 256 colours: some change a little.
  Canvas many(40, 40, 1, {0, 0, 0});
  for (int i = 0; i < 1600; ++i)
    many.Rect(
        {static_cast<double>(i % 40), static_cast<double>(i / 40)}, 1, 1,
        {static_cast<std::uint8_t>(i / 8), static_cast<std::uint8_t>(i / 8), static_cast<std::uint8_t>(i / 8 + i % 2)});
  const int difference = DifferenceOf(QImage::fromData(BytesOf(folder::MakeBmp(many))), many);
  EXPECT_GE(difference, 0);
  EXPECT_LE(difference, 12);
  for (const Canvas& figure : {folder::DrawSocketFigure("QV8104_80"), folder::DrawSocketFigure("QV8358_6"),
                               folder::DrawIspFigure("QVL09", folder::Wiring::ExhvIsp)}) {
    const int off = DifferenceOf(QImage::fromData(BytesOf(folder::MakeBmp(figure))), figure);
    EXPECT_GE(off, 0);
    EXPECT_LE(off, 12);
  }
}

TEST(Pictures, IconsKeepEveryPixel) {
  const Canvas large = folder::DrawProgramIcon(256);
  EXPECT_EQ(DifferenceOf(QImage::fromData(BytesOf(folder::MakePng(large))), large), 0);
  const std::vector<folder::CursorImage> images{{folder::DrawProgramIcon(16)}, {folder::DrawProgramIcon(48)}, {large}};
  QByteArray file = BytesOf(folder::MakeIcon(images));
  QBuffer buffer(&file);
  QImageReader reader(&buffer);
  ASSERT_EQ(reader.imageCount(), 3);
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(reader.jumpToImage(i));
    const int difference = DifferenceOf(reader.read(), images[static_cast<std::size_t>(i)].picture);
    EXPECT_GE(difference, 0) << i;
    EXPECT_LE(difference, 2) << i;  // Qt multiplies an icon's colours by their alpha
  }
}

}  // namespace
}  // namespace pyxis::test
