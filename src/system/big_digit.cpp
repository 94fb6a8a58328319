#include "platform/big_digit.h"

#include <gmp.h>

#include <cstring>
#include <string>

#include "platform/hex_digits.h"

namespace pyxis {

struct BigDigitNumber {
  mpz_t value;
};

BD bdNew() {
  BD number = new BigDigitNumber;
  mpz_init(number->value);
  return number;
}

void bdFree(BD* number) {
  if (*number == nullptr) return;
  mpz_clear((*number)->value);
  delete *number;
  *number = nullptr;
}

void bdSetZero(BD number) { mpz_set_ui(number->value, 0); }

std::size_t bdConvFromHex(BD number, const char* text) {
  const std::size_t digits = CountHexDigits(text);
  if (digits == 0) {
    bdSetZero(number);
  } else {
    mpz_set_str(number->value, std::string(text, digits).c_str(), 16);
  }
  return digits;
}

std::size_t bdConvToHex(BD number, char* buffer, std::size_t size) {
  std::string text(mpz_sizeinbase(number->value, 16) + 2, '\0');
  mpz_get_str(text.data(), 16, number->value);
  text.resize(std::strlen(text.c_str()));
  if (size > 0) {
    const std::size_t count = text.size() < size - 1 ? text.size() : size - 1;
    std::memcpy(buffer, text.data(), count);
    buffer[count] = '\0';
  }
  return text.size();
}

void bdAdd(BD result, BD a, BD b) { mpz_add(result->value, a->value, b->value); }

void bdSubtract(BD result, BD a, BD b) {
  if (bdCompare(a, b) <= 0) return bdSetZero(result);
  mpz_sub(result->value, a->value, b->value);
}

void bdIncrement(BD number) { mpz_add_ui(number->value, number->value, 1); }

void bdDecrement(BD number) {
  if (bdIsZero(number) == 0) mpz_sub_ui(number->value, number->value, 1);
}

int bdCompare(BD a, BD b) { return mpz_cmp(a->value, b->value); }

int bdIsEqual(BD a, BD b) { return mpz_cmp(a->value, b->value) == 0 ? 1 : 0; }

int bdIsZero(BD number) { return mpz_sgn(number->value) == 0 ? 1 : 0; }

}  // namespace pyxis
