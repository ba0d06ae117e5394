// Sizes of files.
#pragma once

#include <cstdint>

// A larger file is not taken into memory as a whole, in bytes.
constexpr std::uint64_t maxFileInMemory = std::uint64_t{256} << 20;
