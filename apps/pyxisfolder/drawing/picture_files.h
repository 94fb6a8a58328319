// Pictures as the bytes of files, where Qt alone doesn't write them.
#pragma once

#include <QByteArray>
#include <span>

#include "pyxisfolder/drawing/pictures.h"

namespace pyxis::folder {

// By Qt's writer of that format.
QByteArray Saved(const QImage& picture, const char* format);

// A Windows bitmap with 256 colours and run-length coded lines. In a picture of more colours the rare ones become the
// nearest of the others.
QByteArray MakeBmp(const QImage& picture);

// .ico, one picture a size.
QByteArray MakeIcon(std::span<const QImage> pictures);

// .ani: a RIFF file of the form ACON. The hot spot is the middle of the picture.
QByteArray MakeAni(const Animation& animation);

}  // namespace pyxis::folder
