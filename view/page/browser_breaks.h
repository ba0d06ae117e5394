// Where lines of a page break as in browsers, and not as the rules of the system have it.
#pragma once

enum class BreakChange { None, Join, Break };

// Between two units, the first of which follows `before`; 0 for none.
BreakChange BreakChangeAt(char16_t before, char16_t left, char16_t right);
