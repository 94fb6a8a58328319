#include "shell/ground/messages.h"

#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"

namespace pyxis {

void TellText(const std::string& text) { TheMachine().op->Tell(text); }

void TellOpenFail(const std::string& path) {
  TheMachine().op->Tell(Printf("Open Fail ! (%s)", path.c_str()), kPlainCaption);
}

}  // namespace pyxis
