#include "shell/start_up.h"

#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "shell/ground/app_state.h"

namespace pyxis {

void PeekModelRegister() {
  WriterState& writer = TheAppState().writer;
  writer.ModelRegister = PeekByte(address::kModel);
  writer.WriterInfoBlock[Field::WriterModelByte.offset] = 0;
}

void IdentifyAtStart() {
  AppState& app = TheAppState();
  ReadWriterIdentity();
  PeekModelRegister();
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const std::uint8_t blockModel = FieldByte(app.writer.WriterInfoBlock, Field::WriterModelByte);
  app.writer.WriterModel = blockModel == app.writer.ModelRegister ? ModelOf(blockModel) : Model::None;
  ReadFirmwareBytes();
}

void SettleModelAtSelection() {
  AppState& app = TheAppState();
  PeekModelRegister();
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const std::uint8_t block = FieldByte(app.writer.WriterInfoBlock, Field::WriterModelByte);
  const auto names = [&](std::uint8_t model) { return block == model || app.writer.ModelRegister == model; };
  app.writer.WriterModel = names(kRegisterKm48) ? Model::Km48 : names(kRegisterKm49) ? Model::Km49 : Model::None;
}

}  // namespace pyxis
