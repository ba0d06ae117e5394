// Where the program stands and how it was started.
#pragma once

#include <string>

struct Launch {
    std::u16string programFolder;  // without a separator at its end
    std::u16string executableName; // base name, without extension
    std::u16string userDataFolder; // for a program folder that cannot be written
    std::u16string sharedFolder;   // of an installation, for what is not beside the program; or ""
    std::u16string commandLine;    // the path of a book as a full path, or ""
    std::u16string rootFolder;     // where a dialog starts when no other folder is known
    std::u16string programsFolder; // likewise, for one that chooses a program
};
