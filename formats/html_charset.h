// The charset of an HTML page that declares none.
#pragma once

#include <string>
#include <string_view>

// As browsers name it; "" when the bytes leave nothing to guess, or it is none that browsers know.
// `start` is the start of the file, a megabyte is enough.
std::string GuessedPageCharset(std::string_view start, int systemPage);
