// A folder in memory that each fuzz run writes its files into; it is AppDir.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace pyxis::fuzz {

class Scratch {
 public:
  Scratch();
  std::string Path(const std::string& name) const;
  void Put(const std::string& name, const std::uint8_t* data, std::size_t size) const;
  // A template of that many equal bytes for every IC.
  void PutTemplates(std::uint8_t byte, std::size_t size) const;
};

}  // namespace pyxis::fuzz
