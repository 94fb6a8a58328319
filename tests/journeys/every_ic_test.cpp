// Every row of the catalogue, over both transports: from its sample program file to a burnt chip.
#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "operations/tasks.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

struct Place {
  Transport transport;
  int list;
};

class EveryIc : public StandinBench, public ::testing::WithParamInterface<Place> {
 protected:
  EveryIc() : StandinBench(GetParam().transport, GetParam().list < kFirstKm49List ? kModelKm48 : kModelKm49) {}
};

TEST_P(EveryIc, IsBurntByteForByte) {
  for (const ChipEntry& row : ChipList(GetParam().list)) {
    SCOPED_TRACE(row.TypeLabel);
    writer.chip = standin::Chip{};
    LoadSample(row.TypeLabel);
    if (HasFatalFailure()) return;
    EXPECT_EQ(TheAppState().FirmwareCode, FirmwareFor(row.ChipCode, TheAppState().WriterModel)->FirmwareCode);
    op.told.clear();
    OnAuto();
    EXPECT_EQ(op.Texts(), Texts{"Auto OK"});
    EXPECT_EQ(writer.chip.burnt, Contents(kDataPackageName));
    EXPECT_EQ(ChipNameOf(writer.OptionArea()), row.ChipName);
  }
}

std::vector<Place> AllPlaces() {
  std::vector<Place> places;
  for (const Transport transport : {Transport::Usb, Transport::Vendor})
    for (int list = 0; list < kListCount; ++list) places.push_back({transport, list});
  return places;
}

std::string NameOf(const ::testing::TestParamInfo<Place>& place) {
  return (place.param.transport == Transport::Usb ? "Usb" : "Vendor") + std::to_string(place.param.list);
}

INSTANTIATE_TEST_SUITE_P(AllLists, EveryIc, ::testing::ValuesIn(AllPlaces()), NameOf);

}  // namespace
}  // namespace pyxis::test
