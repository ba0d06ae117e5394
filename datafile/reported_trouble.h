// What the user has been told of the data file in this run.
#pragma once

#include "datafile/ini_file.h"

#include <set>

struct ReportedTrouble {
    std::set<IniTrouble> reported; // each once
    int failedWrites = 0;          // seconds in which what had to be written could not be
};
