// Reads declarations: a property's name and the tokens of its value.
#pragma once

#include "formats/css/css_reading.h"
#include "formats/css/css_variables.h"

#include <span>
#include <string_view>

// Adds what the value means to the block: nothing when property or value is unknown, several for a
// shorthand.
void ReadCssDeclaration(std::u16string_view name, std::span<const CssToken> value,
                        const CssReading& reading, CssBlock& block);
// What a declaration says with the variables in their places: of one that makes no sense then,
// `unset`.
CssBlock ReadCssWritten(const CssWrittenDeclaration& declaration, const CssVariables& variables,
                        const CssReading& reading);
