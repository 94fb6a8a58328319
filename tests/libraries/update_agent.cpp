// A stand-in of the update library: it gives one answer, and keeps what it was called with.
#include <cstdint>
#include <string>

namespace {
std::string theRequest;
void* theWindow = nullptr;
void* theInstance = nullptr;
}  // namespace

extern "C" {

std::int32_t CallUpdateAgent(const char* request, void* window, void* instance) {
  theRequest = request;
  theWindow = window;
  theInstance = instance;
  return -7;
}

// For the test alone: the request.
const char* LastCall(void** window, void** instance) {
  *window = theWindow;
  *instance = theInstance;
  return theRequest.c_str();
}
}
