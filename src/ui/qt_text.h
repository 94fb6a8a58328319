// Between the logic's UTF-8 texts and Qt's.
#pragma once

#include <QString>
#include <string>

namespace pyxis::ui {

inline QString FromText(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string ToText(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace pyxis::ui
