#include "shell/initial_folder.h"

std::u16string InitialFolder(const Files& files, std::u16string path,
                             const std::u16string& fallback, const std::u16string& root) {
    const char16_t separator = files.Separator();
    if (path.ends_with(separator)) path += u"-.-";
    const auto end = path.rfind(separator);
    std::u16string folder = end == std::u16string::npos ? u"" : path.substr(0, end);
    if (end == 0) folder = separator;
    if (folder.empty()) folder = fallback;
    return files.FolderExists(folder) ? folder : root;
}
