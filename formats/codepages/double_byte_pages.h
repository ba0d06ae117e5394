// Code pages of East Asian scripts, whose characters are one byte or several.
#pragma once

#include "formats/codepages/code_page_shapes.h"

#include <string>
#include <string_view>

const DoubleBytePage* FindDoubleBytePage(int codePage); // nullptr for others

bool IsLeadByte(const DoubleBytePage& page, unsigned char byte);
// As the functions of these names in code_pages.h.
std::size_t SequenceLength(const DoubleBytePage& page, std::string_view bytes);
std::size_t CharacterEnd(const DoubleBytePage& page, std::string_view bytes, std::size_t place);
void DecodeDoubleBytes(const DoubleBytePage& page, std::string_view bytes, std::u16string& text);
