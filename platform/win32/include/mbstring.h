#pragma once

#include <cstddef>

// Copies `count` bytes, never splitting a character; stops at the terminator and fills the rest with zeros.
// No terminator is written when the text has `count` bytes or more.
unsigned char* _mbsnbcpy(unsigned char* destination, const unsigned char* source, std::size_t count);
