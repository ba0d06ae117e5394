#include "shell/initial_folder.h"

#include "common/paths.h"

std::u16string InitialFolder(const Files& files, std::u16string path,
                             const std::u16string& fallback, const std::u16string& root) {
    const char16_t separator = files.Separator();
    if (path.ends_with(separator)) path += u"-.-";
    std::u16string folder(FolderOf(path, separator));
    if (folder.empty()) folder = fallback;
    return files.FolderExists(folder) ? folder : root;
}
