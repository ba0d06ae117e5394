#include "datafile/location.h"

#include "datafile/ini_file.h"

namespace {
constexpr std::u16string_view dataFileEnding = u".dat";

// In a folder for everybody's temporary files nobody's state is safe, and a program's folder that
// cannot be written keeps none.
bool KeepsData(const Files& files, const std::u16string& folder) {
    return files.FolderIsWritable(folder) && !files.FolderIsPublic(folder);
}
} // namespace

std::u16string ProgramFile(const Files& files, const Launch& launch, std::u16string_view ending) {
    std::u16string path = launch.programFolder + files.Separator() + launch.executableName;
    return path += ending;
}

std::u16string ResolveDataFilePath(Files& files, const Launch& launch) {
    std::u16string beside = ProgramFile(files, launch, dataFileEnding);
    const bool ofOther = files.FileExists(beside) && !files.MayReplace(beside);
    if (KeepsData(files, launch.programFolder) && !ofOther) return beside;
    files.CreateFolder(launch.userDataFolder);
    std::u16string own = launch.userDataFolder + files.Separator() + launch.executableName;
    return own += dataFileEnding;
}

std::u16string SeedOwnDataFile(Files& files, const Launch& launch,
                               const std::u16string& dataFilePath) {
    std::u16string beside = ProgramFile(files, launch, dataFileEnding);
    if (dataFilePath == beside || files.FileExists(dataFilePath)) return u"";
    // Another user's own state is no beginning for this one's.
    if (KeepsData(files, launch.programFolder)) return beside;
    std::string bytes;
    if (files.Read(beside, maxDataFileSize, bytes) == ReadStatus::Ok)
        files.Replace(dataFilePath, bytes, WriteTime::Now);
    return u"";
}
