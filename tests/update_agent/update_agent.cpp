// A stand-in of the update library: it gives the answer that it was told, and keeps what it was called with.
#include <cstdint>
#include <string>

namespace {
std::int32_t theAnswer = 0;
std::string theRequest;
void* theWindow = nullptr;
void* theInstance = nullptr;
}  // namespace

extern "C" {

std::int32_t CallUpdateAgent(const char* request, void* window, void* instance) {
  theRequest = request;
  theWindow = window;
  theInstance = instance;
  return theAnswer;
}

// For the test alone.
void SetAnswer(std::int32_t answer) { theAnswer = answer; }
const char* LastRequest() { return theRequest.c_str(); }
void* LastWindow() { return theWindow; }
void* LastInstance() { return theInstance; }
}
