#include "version/version.h"

namespace pyxis {

const char kVersion[] = PYXIS_VERSION;

}  // namespace pyxis
