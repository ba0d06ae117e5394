#include "datafile/ini_file.h"

#include "common/paths.h"

#include <algorithm>
#include <utility>

namespace {

// A file that is being written by somebody else may be empty for a moment.
bool HoldsNothing(std::string_view bytes) {
    return std::ranges::all_of(bytes,
                               [](char byte) { return static_cast<unsigned char>(byte) <= ' '; });
}

} // namespace

IniFile::IniFile(Files& files, std::u16string path, int ansiCodePage, ProfileFile::Decoder decoder)
    : files_(files), path_(std::move(path)), ansiCodePage_(ansiCodePage), decoder_(decoder) {}

bool IniFile::IsUnread() {
    Refresh();
    return unread_;
}

ReadStatus IniFile::TryRead() {
    unread_ = false;
    version_.reset();
    if (status_ && *status_ != ReadStatus::Ok) status_.reset();
    Refresh();
    return status_.value_or(ReadStatus::NotFound);
}

IniTrouble IniFile::Trouble() const {
    if (unread_) return IniTrouble::Unread;
    const bool readable =
        !status_ || *status_ == ReadStatus::Ok || *status_ == ReadStatus::NotFound;
    if (!readable) return IniTrouble::NotRead;
    return writeFailed_ ? IniTrouble::NotWritten : IniTrouble::None;
}

const ProfileFile& IniFile::Content() {
    Refresh();
    return content_;
}

// A folder that is out of reach, on a share or a stick, says nothing of the file in it.
bool IniFile::FolderIsThere() const {
    const std::u16string folder(FolderOf(path_, files_.Separator()));
    return folder.empty() || files_.FolderExists(folder);
}

void IniFile::Refresh() {
    const bool inBatch = batches_ > 0 && !pending_.empty();
    if (path_.empty() || unread_ || inBatch) return;
    // The version is taken first: a change between the two calls then shows as a new version next
    // time.
    const auto version = files_.Version(path_);
    if (version && version == version_) return;
    std::string bytes;
    const ReadStatus status = files_.Read(path_, maxDataFileSize, bytes);
    version_ = status == ReadStatus::Ok ? version : std::nullopt;
    ApplyRead(status, bytes);
}

void IniFile::ApplyRead(ReadStatus status, std::string_view bytes) {
    const bool known = status_.has_value();
    const bool missing = status == ReadStatus::NotFound && FolderIsThere();
    if (!known && status != ReadStatus::Ok && !missing) unread_ = true;
    const bool lost = missing || (status == ReadStatus::Ok && HoldsNothing(bytes));
    status_ = missing || status != ReadStatus::NotFound ? status : ReadStatus::Failed;
    if (known && lost) before_.clear();
    if (status != ReadStatus::Ok || (known && lost)) return; // what was read before stays true
    content_ = ProfileFile::Parse(bytes, ansiCodePage_, decoder_);
    if (pending_.empty()) return;
    before_ = content_.ToBytes();
    for (const Edit& edit : pending_)
        edit.apply(content_);
}

void IniFile::SetValue(WriteMode mode, std::u16string_view section, std::u16string_view key,
                       std::u16string_view value) {
    const std::u16string name(section), entry(key), text(value);
    Change(mode, {name, entry, [=](ProfileFile& file) { file.SetValue(name, entry, text); }});
}

void IniFile::SetSection(WriteMode mode, std::u16string_view section, ListLines lines) {
    const std::u16string name(section);
    Change(mode, {name, u"", [name, lines = std::move(lines)](ProfileFile& file) {
                      file.SetSection(name, lines);
                  }});
}

ListLines IniFile::MergeSection(std::u16string_view section, const ListLines& base,
                                const ListLines& lines) {
    if (IsUnread()) return lines;
    const std::u16string name(section);
    ListLines theirs = content_.SectionLines(name);
    ListLines merged = MergedList(base, lines, theirs, KeyOfLine);
    // Merged again where another program writes before this can be written.
    Change(WriteMode::KeepTime,
           {name, u"", [name, merged, theirs = std::move(theirs)](ProfileFile& file) {
                file.SetSection(name,
                                MergedList(theirs, merged, file.SectionLines(name), KeyOfLine));
            }});
    return merged;
}

void IniFile::RemoveLines(std::u16string_view section, const ListLines& lines) {
    const std::u16string name(section);
    Change(WriteMode::KeepTime,
           {name, u"", [name, lines](ProfileFile& file) {
                file.SetSection(name, MergedList(lines, {}, file.SectionLines(name), KeyOfLine));
                file.RemoveEmptySection(name);
            }});
}

void IniFile::Change(WriteMode mode, Edit edit) {
    if (path_.empty()) return;
    Refresh();
    if (unread_) return;
    if (pending_.empty()) before_ = content_.ToBytes();
    edit.apply(content_);
    // An edit makes earlier ones of the same place unnecessary; they are few.
    std::erase_if(pending_, [&](const Edit& earlier) {
        return earlier.section == edit.section && (edit.key.empty() || earlier.key == edit.key);
    });
    pending_.push_back(std::move(edit));
    if (mode != WriteMode::KeepTime) time_ = WriteTime::Now;
    always_ = always_ || mode == WriteMode::Always;
    if (batches_ == 0) WriteChanges();
}

bool IniFile::Flush() {
    if (pending_.empty()) return true;
    Refresh();
    return WriteChanges();
}

bool IniFile::WriteChanges() {
    if (unread_ || Trouble() == IniTrouble::NotRead) return false;
    const std::string& bytes = content_.ToBytes();
    if (always_ || bytes != before_) {
        writeFailed_ = !files_.Replace(path_, bytes, time_);
        if (writeFailed_) return false;
        version_ = files_.Version(path_);
        status_ = ReadStatus::Ok;
    }
    pending_.clear();
    before_.clear();
    time_ = WriteTime::Keep;
    always_ = false;
    return true;
}

bool IniBatch::Commit() {
    if (committed_) return true;
    committed_ = true;
    if (--file_.batches_ > 0 || file_.pending_.empty()) return true;
    return file_.WriteChanges();
}
