#include "ui/readable_style.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace pyxis::ui {

namespace {

constexpr double kOutlineContrast = 3.2;  // 3 is wanted; the edge is smoothed
constexpr double kBlendStep = 0.05;

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

QColor Blend(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

// The faintest one between background and text that stands out from the background and from the inside.
QColor OutlineOf(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  const QColor base = palette.color(QPalette::Active, QPalette::Base);
  for (double share = kBlendStep; share < 1; share += kBlendStep) {
    const QColor outline = Blend(window, text, share);
    if (std::min(ContrastOf(outline, window), ContrastOf(outline, base)) >= kOutlineContrast) return outline;
  }
  return text;
}

}  // namespace

double ContrastOf(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
  return (light + 0.05) / (dark + 0.05);
}

ReadableStyle::ReadableStyle(const QString& base) : QProxyStyle(base) {}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool round = element == PE_IndicatorRadioButton;
  if (!round && element != PE_IndicatorCheckBox) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, round);
  painter->setPen(OutlineOf(option->palette));
  if (round) {
    painter->drawEllipse(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
  } else {
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  }
  painter->restore();
}

void ShownBox::initStyleOption(QStyleOptionButton* option) const {
  QCheckBox::initStyleOption(option);
  option->state |= QStyle::State_Enabled;
  option->palette.setCurrentColorGroup(QPalette::Active);
}

}  // namespace pyxis::ui
