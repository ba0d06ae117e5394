#include "common/file_dates.h"

bool FileExists(const Files& files, const std::u16string& path) {
    return !path.empty() && files.FileExists(path);
}

std::optional<DateTime> GetFileDate(const Files& files, const std::u16string& path,
                                    FileStamp which) {
    if (const auto date = files.Stamp(path, which)) return date;
    return files.Stamp(path, FileStamp::LastWrite);
}

bool SetFileDate(Files& files, const std::u16string& path, const DateTime& local, FileStamp which) {
    return files.Stamp(path, which) == local || files.SetStamp(path, local, which);
}
