#pragma once

#include <cstdint>
#include <string>

/// The SHA-256 digest (FIPS 180-4) of the first `length` bytes of an open file, as 64 small hexadecimal
/// digits; empty when they cannot be read.
std::string sha256OfFile(int descriptor, std::uint64_t length);
