// Package figures: how an IC sits in the writer's socket, or how it is wired to the writer on its own board.
#pragma once

#include <string_view>

#include "pyxisfolder/drawing/canvas.h"

namespace pyxis::folder {

enum class Wiring { ExhvIsp, Isp };

Canvas DrawSocketFigure(std::string_view label);
Canvas DrawIspFigure(std::string_view label, Wiring wiring);

}  // namespace pyxis::folder
