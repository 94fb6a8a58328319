// What the programs tell as their version: a package's own, else the project's.
#pragma once

namespace pyxis {

extern const char kVersion[];

}  // namespace pyxis
