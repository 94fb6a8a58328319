#include "platform/big_digit.h"

#include <gmpxx.h>

#include <string>

#include "platform/hex_digits.h"

namespace pyxis {

struct BigDigitNumber {
  mpz_class value;
};

BD bdNew() { return new BigDigitNumber; }

void bdFree(BD* number) {
  delete *number;
  *number = nullptr;
}

void bdSetZero(BD number) { number->value = 0; }

std::size_t bdConvFromHex(BD number, const char* text) {
  const std::size_t digits = CountHexDigits(text);
  if (number->value.set_str(std::string(text, digits), 16) != 0) bdSetZero(number);
  return digits;
}

std::size_t bdConvToHex(BD number, char* buffer, std::size_t size) {
  const std::string text = number->value.get_str(16);
  if (size > 0) buffer[text.copy(buffer, size - 1)] = '\0';
  return text.size();
}

void bdAdd(BD result, BD a, BD b) { result->value = a->value + b->value; }

void bdSubtract(BD result, BD a, BD b) {
  if (bdCompare(a, b) <= 0) return bdSetZero(result);
  result->value = a->value - b->value;
}

void bdIncrement(BD number) { ++number->value; }

void bdDecrement(BD number) {
  if (bdIsZero(number) == 0) --number->value;
}

int bdCompare(BD a, BD b) { return cmp(a->value, b->value); }

int bdIsEqual(BD a, BD b) { return a->value == b->value ? 1 : 0; }

int bdIsZero(BD number) { return sgn(number->value) == 0 ? 1 : 0; }

}  // namespace pyxis
