// Big numbers by handle, under the names of the library that they stand in for. Numbers are never negative: bdDecrement
// of 0 gives 0. The body (system/big_digit.cpp) works over GMP.
#pragma once

#include <cstddef>

namespace pyxis {

using BD = struct BigDigitNumber*;

BD bdNew();
void bdFree(BD* number);  // releases it and clears the handle
void bdSetZero(BD number);
// Reads hexadecimal digits of either case up to the first other character; no digit gives 0. Returns the digit count.
std::size_t bdConvFromHex(BD number, const char* text);
// Writes hexadecimal text without leading zeros ("0" for 0), cut to size - 1 characters and terminated; returns the
// number of characters that the whole text has.
std::size_t bdConvToHex(BD number, char* buffer, std::size_t size);
void bdAdd(BD result, BD a, BD b);
// a - b; 0 where b is the larger one.
void bdSubtract(BD result, BD a, BD b);
void bdIncrement(BD number);
void bdDecrement(BD number);
int bdCompare(BD a, BD b);  // below, equal to or above 0
int bdIsEqual(BD a, BD b);
int bdIsZero(BD number);

}  // namespace pyxis
