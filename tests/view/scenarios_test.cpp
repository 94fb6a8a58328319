#include "support/scenario.h"

PYXIS_SCENARIOS("view");
