// The application profile: named integers that outlive a run.
#pragma once

#include <string>

namespace pyxis {

class Profile {
 public:
  virtual ~Profile() = default;
  virtual int GetProfileInt(const std::string& section, const std::string& name, int defaultValue) = 0;
  // A failed write isn't reported.
  virtual void WriteProfileInt(const std::string& section, const std::string& name, int value) = 0;
};

}  // namespace pyxis
