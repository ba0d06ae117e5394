// Where the data file is, and what start-up writes into it.
#pragma once

#include "common/ini_file.h"
#include "platform/ports.h"

#include <memory>
#include <string>

struct MainForm;

// Beside the program when its folder can be written, else in the user's own data folder, which is
// then made.
std::u16string ResolveDataFilePath(Files&, const Launch&);

// The path of the program with another ending, for example ".hlp".
std::u16string ProgramFile(const Files&, const Launch&, std::u16string_view ending);

// What stands beside a program whose folder cannot be written is what a user's own data file begins
// with: there nothing that is read from now on could be kept.
void TakeOverDataFile(MainForm&);

std::unique_ptr<IniFile> OpenDataFile(MainForm&);

// Reads it for the first time. A file that another program holds just now, as backup, sync and
// virus scanners do, is tried again for a while.
void ReadDataFile(MainForm&);
// The same for what has to be written when the program ends; what could not be is told to the user.
void WriteDataFileAtLast(MainForm&);

// What start-up found out about the file, in one message, when the window is there.
void TellStartTrouble(MainForm&);

// The section that explains the file to a person who opens it.
void WriteScheme(IniFile&);

// The value of a registry entry under the local machine's root is written only when it differs.
// Returns the system's error code, 0 on success.
int RegWriteValue(Registry&, const std::u16string& key, const std::u16string& name,
                  const std::u16string& text);
