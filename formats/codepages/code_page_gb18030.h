// The four-byte sequences that GB18030 adds to page 936.
#pragma once

// Whether the four bytes have the shape of such a sequence, with a meaning or without.
bool IsFourByteSequence(const unsigned char* bytes);

// Its character, U+FFFD when it has none.
char32_t FourByteCharacter(const unsigned char* bytes);
