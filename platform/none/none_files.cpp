#include "platform/none/none_files.h"

#include <utility>

namespace {

// The same names that no file of a real system is found under.
bool IsUsable(const std::u16string& path) {
    return !path.empty() && path.find_first_of(u"?\uFFFD") == path.npos &&
           path.find(u'\0') == path.npos;
}

} // namespace

std::u16string NoneFiles::FolderOf(const std::u16string& path) const {
    const std::size_t at = path.rfind(separator);
    return at == path.npos ? std::u16string() : path.substr(0, at);
}

const NoneFiles::File* NoneFiles::Find(const std::u16string& path) const {
    const auto found = files_.find(path);
    return found == files_.end() || !IsUsable(path) ? nullptr : &found->second;
}

NoneFiles::File* NoneFiles::Find(const std::u16string& path) {
    return const_cast<File*>(std::as_const(*this).Find(path));
}

NoneFiles::File& NoneFiles::AddFile(const std::u16string& path, std::string_view bytes) {
    AddFolder(FolderOf(path));
    const DateTime now = clock_.Now();
    File& file = files_[path];
    file = {std::string(bytes), false, now, now, now, ++lastId_, ++lastWriteNumber_};
    changes->push_back(path);
    return file;
}

void NoneFiles::AddFolder(const std::u16string& path) {
    for (std::u16string folder = path; !folder.empty(); folder = FolderOf(folder)) {
        folders_.insert(folder);
    }
}

void NoneFiles::Remove(const std::u16string& path) {
    files_.erase(path);
    folders_.erase(path);
    changes->push_back(path);
}

void NoneFiles::EditInPlace(const std::u16string& path, std::string_view bytes) {
    File& file = files_.at(path);
    file.bytes = bytes;
    file.lastWrite = clock_.Now();
    file.writeNumber = ++lastWriteNumber_;
    changes->push_back(path);
}

std::string NoneFiles::Bytes(const std::u16string& path) const {
    const File* file = Find(path);
    return file ? file->bytes : std::string();
}

std::vector<std::u16string> NoneFiles::NamesIn(const std::u16string& folder) const {
    std::set<std::u16string> paths = folders_;
    for (const auto& [path, file] : files_)
        paths.insert(path);
    std::vector<std::u16string> names;
    for (const std::u16string& path : paths) {
        if (FolderOf(path) == folder) names.push_back(path.substr(folder.size() + 1));
    }
    return names;
}

bool NoneFiles::FileExists(const std::u16string& path) const {
    ++existsCalls;
    return Find(path) != nullptr;
}

bool NoneFiles::FolderExists(const std::u16string& path) const {
    return IsUsable(path) && folders_.contains(path);
}

bool NoneFiles::FolderIsWritable(const std::u16string& path) const {
    return FolderExists(path) && !readOnlyFolders.contains(path);
}

bool NoneFiles::CreateFolder(const std::u16string& path) {
    if (!IsUsable(path)) return false;
    for (std::u16string folder = path; !folder.empty(); folder = FolderOf(folder)) {
        if (files_.contains(folder)) return false;
        if (readOnlyFolders.contains(folder) && folder != path) return false;
        if (folders_.contains(folder)) break;
    }
    AddFolder(path);
    return true;
}

bool NoneFiles::SameFile(const std::u16string& a, const std::u16string& b) const {
    return a == b && Find(a);
}

bool NoneFiles::IsInFolder(const std::u16string& path, const std::u16string& folder) const {
    const bool ends = !folder.empty() && folder.back() == separator;
    return Find(path) && path.starts_with(ends ? folder : folder + separator);
}

std::optional<FileVersion> NoneFiles::Version(const std::u16string& path) const {
    ++versionCalls;
    const File* file = Find(path);
    if (!file) return std::nullopt;
    return FileVersion{1, file->id, file->bytes.size(), file->writeNumber};
}

ReadStatus NoneFiles::Read(const std::u16string& path, std::uint64_t limit,
                           std::string& bytes) const {
    readCalls.push_back(path);
    if (const auto failure = readFailure.find(path); failure != readFailure.end()) {
        return failure->second;
    }
    if (FolderExists(path)) return ReadStatus::NotAFile;
    const File* file = Find(path);
    if (!file) return ReadStatus::NotFound;
    if (file->bytes.size() > limit) return ReadStatus::TooLarge;
    bytes = file->bytes;
    return ReadStatus::Ok;
}

ReadStatus NoneFiles::ReadStart(const std::u16string& path, std::size_t count,
                                std::string& bytes) const {
    std::string whole;
    const ReadStatus status = Read(path, ~std::uint64_t{0}, whole);
    if (status == ReadStatus::Ok) bytes = whole.substr(0, count);
    return status;
}

bool NoneFiles::MayReplace(const std::u16string& path) const {
    return IsUsable(path) && FolderIsWritable(FolderOf(path)) && !othersFiles.contains(path);
}

bool NoneFiles::Replace(const std::u16string& path, std::string_view bytes, WriteTime time) {
    const bool done = WriteOver(path, bytes, time);
    replaceCalls.push_back({path, std::string(bytes), time, done});
    return done;
}

bool NoneFiles::WriteOver(const std::u16string& path, std::string_view bytes, WriteTime time) {
    if (failReplace || !MayReplace(path)) return false;
    if (FolderExists(path)) return false;
    const File* old = Find(path);
    const File before = old ? *old : File();
    const bool existed = old != nullptr;
    File& file = AddFile(path, bytes);
    if (!existed) return true;
    file.readOnly = before.readOnly;
    file.creation = before.creation;
    if (time == WriteTime::Keep) {
        file.lastWrite = before.lastWrite;
        file.writeNumber = before.writeNumber;
    }
    return true;
}

std::optional<DateTime> NoneFiles::Time(const std::u16string& path, FileTime which) const {
    const File* file = Find(path);
    if (!file) return std::nullopt;
    switch (which) {
    case FileTime::Creation: return file->creation;
    case FileTime::LastAccess: return file->lastAccess;
    case FileTime::LastWrite: break;
    }
    return file->lastWrite;
}

bool NoneFiles::SetTime(const std::u16string& path, const DateTime& local, FileTime which) {
    File* file = Find(path);
    if (!file) return false;
    if (which == FileTime::Creation) file->creation = local;
    if (which == FileTime::LastAccess) file->lastAccess = local;
    if (which == FileTime::LastWrite) {
        file->lastWrite = local;
        file->writeNumber = ++lastWriteNumber_;
    }
    changes->push_back(path);
    return true;
}
