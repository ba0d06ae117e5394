// The problems of the data file that this run has reported to the user.
#pragma once

#include "datafile/ini_file.h"

#include <set>

struct ReportedTrouble {
    std::set<IniTrouble> reported; // each once
    int failedWrites = 0;          // seconds in which what had to be written could not be
};
