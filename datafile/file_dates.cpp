#include "datafile/file_dates.h"

bool FileExists(const Files& files, const std::u16string& path) {
    return !path.empty() && files.FileExists(path);
}

std::optional<DateTime> GetFileDate(const Files& files, const std::u16string& path,
                                    FileTime which) {
    if (const auto date = files.Time(path, which)) return date;
    return files.Time(path, FileTime::LastWrite);
}

bool SetFileDate(Files& files, const std::u16string& path, const DateTime& local, FileTime which) {
    return files.Time(path, which) == local || files.SetTime(path, local, which);
}
