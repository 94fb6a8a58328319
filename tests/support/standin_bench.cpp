#include "support/standin_bench.h"

#include <cstdio>

#include "catalogue/chip_catalogue.h"
#include "intake/load_file.h"
#include "link/identification.h"
#include "pyxisfolder/folder.h"
#include "shell/start_up.h"

namespace pyxis::test {

StandinBench::StandinBench(Transport transport, Model model) : writer(model) {
  TheMachine().diagnostics = TheMachine().trace = nullptr;
  if (transport == Transport::Usb) {
    TheMachine().usb = &usb;
  } else {
    TheMachine().vendor = &vendor;
  }
  OpenTransport();
  IdentifyAtStart();
  TheAppState().writer.WriterModel = model;
}

StandinBench::~StandinBench() {
  EXPECT_EQ(writer.Violations(), Texts{});
  CloseTransport();
}

std::string StandinBench::PutFolderFor(const std::string& label) {
  int series = 0, type = 0;
  EXPECT_EQ(FindChip(label, series, type), 1) << label;
  const ChipEntry& row = Row(series, type);
  const AppState& app = TheAppState();
  for (const std::string& name : {std::string(row.ChipName), std::string(row.ic->templateName)})
    Write(app.writer.HwFolder + "/" + name + ".txt", pyxis::folder::MakeTemplate(name));
  const auto firmware = FirmwareFor(row.ChipCode, app.writer.WriterModel);
  Write(std::filesystem::relative(firmware->path, folder).string(),
        pyxis::folder::MakeFirmware(app.writer.WriterModel, firmware->FirmwareCode));
  const auto samples = pyxis::folder::MakeSamples(row.ChipName);
  EXPECT_FALSE(samples.empty()) << label;
  for (const auto& sample : samples) Write("samples/" + sample.fileName, sample.contents);
  return "samples/" + samples.front().fileName;
}

void StandinBench::Select(const std::string& label) {
  AppState& app = TheAppState();
  ASSERT_EQ(FindChip(label, app.selection.SeriesIndex, app.selection.TypeIndex), 1) << label;
  app.selection.SelectedChip = Row(app.selection.SeriesIndex, app.selection.TypeIndex).ChipName;
  app.selection.ChipNameText = app.selection.SelectedChip;
}

void StandinBench::Load(const std::string& file) {
  op.files = {Path(file)};
  op.told.clear();
  OnLoadFile();
}

void StandinBench::LoadSample(const std::string& label) {
  const std::string sample = PutFolderFor(label);
  Select(label);
  Load(sample);
  ASSERT_EQ(op.Heard(), Texts{"Loading Data Ok"}) << label;
}

}  // namespace pyxis::test
