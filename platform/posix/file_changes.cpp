#include "platform/posix/file_changes.h"

#include "platform/posix/posix_paths.h"

#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace {
constexpr std::uint32_t ofFile = IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB;
constexpr std::uint32_t ofFolder = ofFile | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                   IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR;
constexpr std::uint32_t folderHasGone = IN_MOVE_SELF | IN_DELETE_SELF | IN_UNMOUNT | IN_IGNORED;

// File systems that other machines or other programs write, of which the kernel sees only what is
// done through it.
bool IsShared(const std::string& folder) {
    constexpr std::array<std::uint32_t, 11> types = {
        0x6969,     // NFS
        0x517B,     // SMB
        0xFF534D42, // CIFS
        0xFE534D42, // SMB 2
        0x65735546, // FUSE
        0x01021997, // 9P, of virtual machines
        0x786F4256, // shared folders of VirtualBox
        0x5346414F, // AFS
        0x00C36400, // Ceph
        0x73757245, // Coda
        0x0BD00BD0, // Lustre
    };
    struct statfs found {};
    if (statfs(folder.c_str(), &found) != 0) return true;
    return std::ranges::find(types, static_cast<std::uint32_t>(found.f_type)) != types.end();
}
} // namespace

FileChanges::FileChanges(std::string path)
    : path_(std::move(path)), queue_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    complete_ = queue_.IsOpen();
    AddFolderOf(path_);
    const auto target = FollowLinks(path_);
    if (target && *target != path_) AddFolderOf(*target);
    WatchFile();
}

void FileChanges::AddFolderOf(const std::string& path) {
    const std::string folder = FolderOf(path);
    const int watch = inotify_add_watch(queue_.Number(), folder.c_str(), ofFolder);
    if (watch >= 0) folders_.push_back({watch, NameOf(path)});
    complete_ = complete_ && watch >= 0 && !IsShared(folder);
}

void FileChanges::WatchFile() {
    if (file_ >= 0) inotify_rm_watch(queue_.Number(), file_);
    file_ = inotify_add_watch(queue_.Number(), path_.c_str(), ofFile);
}

bool FileChanges::IsOfFile(const inotify_event& event) {
    if (event.mask & IN_Q_OVERFLOW) return true;
    if (event.wd == file_) return (event.mask & ofFile) != 0;
    const bool hasGone = (event.mask & folderHasGone) != 0;
    const std::string_view name = event.len > 0 ? event.name : "";
    const bool known = std::ranges::any_of(folders_, [&](const Folder& folder) {
        return folder.watch == event.wd && (hasGone || folder.name == name);
    });
    if (known && hasGone) complete_ = false;
    if (known && (event.mask & (IN_CREATE | IN_MOVED_TO))) WatchFile();
    return known;
}

bool FileChanges::Take() {
    alignas(inotify_event) std::array<char, 4096> events;
    bool changed = false;
    for (;;) {
        const ssize_t count = read(queue_.Number(), events.data(), events.size());
        if (count <= 0) return changed;
        for (std::size_t at = 0; at < static_cast<std::size_t>(count);) {
            const auto& event = *reinterpret_cast<const inotify_event*>(events.data() + at);
            changed = IsOfFile(event) || changed;
            at += sizeof event + event.len;
        }
    }
}
