// Characters that turn the direction of the text around them.
#pragma once

#include <string>

// Text from outside, to stand in a line of ours: without embeddings, overrides and isolates, which
// would reorder what stands beside it and show a name backwards. Letters and marks of direction
// (U+200E, U+200F) stay: they order nothing but their own text.
std::u16string WithoutDirectionControls(std::u16string);
