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

void SettleModelAtSelection() {
  AppState& app = TheAppState();
  app.ModelRegister = 0;
  app.ModelRegister = PeekByte(address::kModel);
  app.WriterInfoBlock[Field::WriterModelByte.offset] = 0;
  ReadInfoBlock(app.WriterInfoBlock);
  const std::uint8_t block = FieldByte(app.WriterInfoBlock, Field::WriterModelByte);
  const auto names = [&](std::uint8_t model) { return block == model || app.ModelRegister == model; };
  app.WriterModel = names(kRegisterKm48) ? kModelKm48 : names(kRegisterKm49) ? kModelKm49 : kModelNone;
}

}  // namespace pyxis
