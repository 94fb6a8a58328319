// A full repaint of the hex view, and a line of scrolling, on a 16 MiB file in a view of 1920 by 1080 pixels.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include "ui/hex_view_widget.h"

namespace pyxis {
namespace {

constexpr std::size_t kFileSize = std::size_t{16} << 20;

void Fill() {
  ConfigureHexView();
  auto data = TheHexView().SetSize(kFileSize);
  for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<std::uint8_t>(i * 2654435761U >> 24);
}

void BM_Repaint(benchmark::State& state) {
  ui::HexViewWidget widget(TheHexView());
  widget.resize(1920, 1080);
  widget.show();
  Fill();
  QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    TheHexView().Scroll(HexScroll::LineDown);
    widget.viewport()->render(&image);
  }
}
BENCHMARK(BM_Repaint)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace pyxis

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
