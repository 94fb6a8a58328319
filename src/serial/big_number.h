// A big number of the library, released with the object.
#pragma once

#include <string>
#include <string_view>

#include "platform/big_digit.h"

namespace pyxis {

class BigNumber {
 public:
  BigNumber() : number_(bdNew()) {}
  ~BigNumber() { bdFree(&number_); }
  BigNumber(const BigNumber&) = delete;
  BigNumber& operator=(const BigNumber&) = delete;

  void TakeHex(std::string_view text) { bdConvFromHex(number_, std::string(text).c_str()); }
  std::string Hex() const;  // upper case, without leading zeros
  void SetZero() { bdSetZero(number_); }
  void SetSum(const BigNumber& a, const BigNumber& b) { bdAdd(number_, a.number_, b.number_); }
  void SetDifference(const BigNumber& a, const BigNumber& b) { bdSubtract(number_, a.number_, b.number_); }
  void Increment() { bdIncrement(number_); }
  void Decrement() { bdDecrement(number_); }
  bool Equals(const BigNumber& other) const { return bdIsEqual(number_, other.number_) != 0; }
  bool Below(const BigNumber& other) const { return bdCompare(number_, other.number_) < 0; }
  bool IsZero() const { return bdIsZero(number_) != 0; }

 private:
  BD number_;
};

}  // namespace pyxis
