#include "platform/posix/posix_sharing.h"

#include <sys/stat.h>
#include <unistd.h>

void ShareAsFolder(int file, const std::string& folder) {
    struct stat status {};
    if (stat(folder.c_str(), &status) != 0) return;
    constexpr uid_t sameOwner = static_cast<uid_t>(-1);
    mode_t mode = 0600;
    if ((status.st_mode & S_IWGRP) && fchown(file, sameOwner, status.st_gid) == 0) mode |= 0060;
    if ((status.st_mode & S_IWOTH) && !(status.st_mode & S_ISVTX)) mode |= 0066;
    static_cast<void>(fchmod(file, mode) == 0); // else it stays its owner's alone
}
