#include "shell/start_up.h"

#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "shell/app_state.h"

namespace pyxis {

void IdentifyAtStart() {
  AppState& app = TheAppState();
  ReadWriterIdentity();
  app.ModelRegister = 0;
  app.ModelRegister = PeekByte(address::kModel);
  app.WriterInfoBlock[Field::WriterModelByte.offset] = 0;
  ReadInfoBlock(app.WriterInfoBlock);
  const std::uint8_t blockModel = FieldByte(app.WriterInfoBlock, Field::WriterModelByte);
  app.WriterModel = kModelNone;
  if (blockModel == app.ModelRegister) {
    if (blockModel == kRegisterKm48) app.WriterModel = kModelKm48;
    if (blockModel == kRegisterKm49) app.WriterModel = kModelKm49;
  }
  ReadFirmwareBytes();
}

}  // namespace pyxis
