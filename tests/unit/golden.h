// Golden files: what the program made of an input when a person last looked at it and approved.
#pragma once

#include <string>

std::string ReadWholeFile(const std::string& path); // "" when it cannot be read

// Holds `actual` against the file tests/golden/<name>; scripts/approve_golden writes it there
// instead.
void CheckGolden(const std::string& name, const std::string& actual);
