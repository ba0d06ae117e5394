// Fields of rich text (RTF 1.9.1).
#pragma once

#include <string>
#include <string_view>

// The address of a HYPERLINK field's instruction, with "#" and the place inside it when it names
// one (\l);
// "" when there is none or it is another field.
std::u16string LinkOfField(std::u16string_view instruction);

// The instruction that `LinkOfField` reads so.
std::u16string FieldOfLink(std::u16string_view address);
