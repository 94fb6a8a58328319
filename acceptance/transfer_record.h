// A bulk transfer as transfer_log writes it and bulk_loop reads it. The bytes that moved follow each one in the file.
#pragma once

#include <cstdint>

struct Transfer {
  std::int32_t endpoint;
  std::int32_t count;   // what was asked for
  std::int32_t result;  // what the library returned
  std::int32_t unused;
  std::int64_t began, ended;  // nanoseconds of the monotonic clock
};
