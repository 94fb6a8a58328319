#include "shell/start_up.h"

#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "shell/ground/app_state.h"

namespace pyxis {

void IdentifyAtStart() {
  AppState& app = TheAppState();
  ReadWriterIdentity();
  app.writer.ModelRegister = PeekByte(address::kModel);
  app.writer.WriterInfoBlock[Field::WriterModelByte.offset] = 0;
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const std::uint8_t blockModel = FieldByte(app.writer.WriterInfoBlock, Field::WriterModelByte);
  app.writer.WriterModel = Model::None;
  if (blockModel == app.writer.ModelRegister) {
    if (blockModel == kRegisterKm48) app.writer.WriterModel = Model::Km48;
    if (blockModel == kRegisterKm49) app.writer.WriterModel = Model::Km49;
  }
  ReadFirmwareBytes();
}

void SettleModelAtSelection() {
  AppState& app = TheAppState();
  app.writer.ModelRegister = PeekByte(address::kModel);
  app.writer.WriterInfoBlock[Field::WriterModelByte.offset] = 0;
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const std::uint8_t block = FieldByte(app.writer.WriterInfoBlock, Field::WriterModelByte);
  const auto names = [&](std::uint8_t model) { return block == model || app.writer.ModelRegister == model; };
  app.writer.WriterModel = names(kRegisterKm48) ? Model::Km48 : names(kRegisterKm49) ? Model::Km49 : Model::None;
}

}  // namespace pyxis
