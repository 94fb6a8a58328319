#include "shell/ground/app_state.h"

namespace pyxis {

namespace {
AppState theAppState;
}

AppState& TheAppState() { return theAppState; }

void ResetAppState() { theAppState = AppState{}; }

}  // namespace pyxis
