// The section that explains the data file to a person who opens it.
#pragma once

#include "datafile/ini_file.h"

void WriteScheme(IniFile&);
