// Where the data file is.
#pragma once

#include "platform/files.h"
#include "platform/launch.h"

#include <string>
#include <string_view>

// The path of the program with another ending, for example ".hlp".
std::u16string ProgramFile(const Files&, const Launch&, std::u16string_view ending);

// Beside the program when its folder can be written, else in the user's own data folder, which is
// then made.
std::u16string ResolveDataFilePath(Files&, const Launch&);

// What stands beside a program whose folder cannot be written is what a user's own data file begins
// with: there nothing that is read from now on could be kept. Returns the path of a data file
// beside the program that belongs to another user, when this one's own is still to be made; else
// "".
std::u16string SeedOwnDataFile(Files&, const Launch&, const std::u16string& dataFilePath);
