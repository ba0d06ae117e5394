// Who else may use a file that is made in a folder.
#pragma once

#include <string>

// What the folder's owner lets its group and all others do in the folder, they may do with a file
// of this user's in it: the folder's group gets it when it may write the folder, everybody when all
// may (but not in one for temporary files). Else the file is for its owner alone. Where the file
// system keeps no modes, as on many a stick, nothing is changed.
void ShareAsFolder(int file, const std::string& folder);
