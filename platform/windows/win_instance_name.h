// The name of the lock that lets one data file be used by one running program only.
#pragma once

#include <string>

// The name of a mutex of this session: the same for a file by whatever spelling and links it is
// reached, also before it exists.
std::wstring InstanceLockName(const std::wstring& dataFilePath);
