#include "common/profile_file.h"

#include "common/profile_encoding.h"
#include "common/profile_text.h"
#include "common/text.h"
#include "common/utf.h"

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

// The text of a line as "key=value" without blanks around either.
std::string EntryText(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::string(line);
    std::string entry(Trim(line.substr(0, equals)));
    entry += '=';
    return entry += Trim(line.substr(equals + 1));
}

} // namespace

ProfileFile ProfileFile::Parse(std::string_view bytes, int ansiCodePage, Decoder decoder) {
    ProfileFile file;
    if (const auto order = Utf16OrderOf(bytes))
        file.text_ = Utf16BytesToUtf8(bytes, *order);
    else
        file.text_ = bytes;
    file.allIsUtf8_ = IsValidUtf8(file.text_);
    file.ansiCodePage_ = ansiCodePage;
    file.decoder_ = decoder;
    file.Index();
    return file;
}

std::string_view ProfileFile::Utf8Of(std::string_view line, std::string& converted) const {
    if (allIsUtf8_ || IsValidUtf8(line)) return line;
    converted =
        Utf16ToUtf8(IsDamagedUtf8(line) ? Utf8ToUtf16(line) : decoder_(ansiCodePage_, line));
    return converted;
}

void ProfileFile::Index() {
    sections_.clear();
    const std::size_t start = text_.starts_with(utf8Mark) ? utf8Mark.size() : 0;
    LineWalk walk(text_, start, text_.size());
    std::string converted;
    while (walk.Next()) {
        const std::string_view line = Trim(walk.Line());
        if (!IsHeader(line)) continue;
        if (!sections_.empty()) sections_.back().end = walk.LineBegin();
        sections_.push_back({FoldedName(HeaderName(Utf8Of(line, converted))), walk.LineBegin(),
                             walk.LineNext(), text_.size()});
    }
}

// Zeros among the text could make a reader take it for UTF-16; after the mark of UTF-8 none does.
void ProfileFile::KeepApartFromUtf16() {
    if (!Utf16OrderOf(text_)) return;
    text_.insert(0, utf8Mark);
    Index();
}

// Makes room for a line after the last one.
void ProfileFile::FinishLastLine() {
    if (text_.empty() || text_.back() == '\n' || text_.back() == '\r') return;
    const std::size_t before = text_.size();
    text_ += "\r\n";
    if (sections_.empty()) return;
    Section& last = sections_.back();
    if (last.body == before) last.body = text_.size(); // the unfinished line was its header
    last.end = text_.size();
}

std::size_t ProfileFile::FindSection(std::u16string_view name) const {
    const std::u16string folded = FoldedName(SectionNameOnDisk(name));
    std::size_t index = 0;
    while (index < sections_.size() && sections_[index].foldedName != folded)
        ++index;
    return index;
}

std::size_t ProfileFile::FindOrAddSection(std::u16string_view name) {
    const std::size_t index = FindSection(name);
    if (index < sections_.size()) return index;
    FinishLastLine();
    const std::size_t header = text_.size();
    const std::string onDisk = SectionNameOnDisk(name);
    text_ += "[" + onDisk + "]\r\n";
    sections_.push_back({FoldedName(onDisk), header, text_.size(), text_.size()});
    return index;
}

std::optional<ProfileFile::Entry> ProfileFile::FindKey(const Section& section,
                                                       std::u16string_view key) const {
    const std::string onDisk = KeyOnDisk(key);
    if (onDisk.empty()) return std::nullopt;
    const std::u16string folded = FoldedName(onDisk);
    LineWalk walk(text_, section.body, section.end);
    std::string converted;
    while (walk.Next()) {
        const std::size_t equals = walk.Line().find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view line = Utf8Of(walk.Line(), converted);
        // No key begins with ";", so a comment is never taken for one.
        if (!NameIs(Trim(line.substr(0, line.find('='))), folded)) continue;
        const std::size_t value = walk.LineBegin() + equals + 1;
        return Entry{walk.LineBegin(), value, walk.LineEnd()};
    }
    return std::nullopt;
}

std::size_t ProfileFile::EndOfEntries(const Section& section) const {
    std::size_t end = section.end; // the header itself is not blank, so this stops there
    while (static_cast<unsigned char>(text_[end - 1]) <= ' ')
        --end;
    LineWalk walk(text_, end - 1, section.end);
    walk.Next();
    return walk.LineNext();
}

std::map<std::u16string, std::string> ProfileFile::LinesNotUtf8(const Section& section) const {
    std::map<std::u16string, std::string> lines;
    if (allIsUtf8_) return lines;
    LineWalk walk(text_, section.body, section.end);
    std::string converted;
    while (walk.Next()) {
        if (IsValidUtf8(walk.Line())) continue;
        const std::string_view line = Trim(Utf8Of(walk.Line(), converted));
        lines.emplace(Utf8ToUtf16(EntryText(line)), Trim(walk.Line()));
    }
    return lines;
}

std::string ProfileFile::Comments(const Section& section) const {
    std::string comments;
    LineWalk walk(text_, section.body, section.end);
    while (walk.Next()) {
        if (!IsComment(Trim(walk.Line()))) continue;
        comments.append(text_, walk.LineBegin(), walk.LineNext() - walk.LineBegin());
        if (walk.LineEnd() == walk.LineNext()) comments += "\r\n"; // the last of the file
    }
    return comments;
}

void ProfileFile::Splice(std::size_t section, std::size_t at, std::size_t length,
                         std::string_view bytes) {
    text_.replace(at, length, bytes);
    const std::size_t growth = bytes.size() - length; // wraps around when the text shrinks
    sections_[section].end += growth;
    for (std::size_t i = section + 1; i < sections_.size(); ++i) {
        sections_[i].header += growth;
        sections_[i].body += growth;
        sections_[i].end += growth;
    }
}

std::optional<std::u16string> ProfileFile::Value(std::u16string_view section,
                                                 std::u16string_view key) const {
    const std::size_t index = FindSection(section);
    if (index == sections_.size()) return std::nullopt;
    const auto entry = FindKey(sections_[index], key);
    if (!entry) return std::nullopt;
    const std::string_view raw(text_.data() + entry->line, entry->end - entry->line);
    std::string converted;
    const std::string_view line = Utf8Of(raw, converted);
    return Utf8ToUtf16(WithoutQuotes(Trim(line.substr(line.find('=') + 1))));
}

std::vector<std::u16string> ProfileFile::SectionLines(std::u16string_view section) const {
    std::vector<std::u16string> lines;
    const std::size_t index = FindSection(section);
    if (index == sections_.size()) return lines;
    LineWalk walk(text_, sections_[index].body, sections_[index].end);
    std::string converted;
    while (walk.Next()) {
        const std::string_view line = Trim(Utf8Of(walk.Line(), converted));
        if (line.empty() || IsComment(line)) continue;
        lines.push_back(Utf8ToUtf16(EntryText(line)));
    }
    return lines;
}

std::vector<std::u16string> ProfileFile::SectionNames() const {
    std::vector<std::u16string> names;
    std::string converted;
    for (const Section& section : sections_) {
        const auto header =
            std::string_view(text_).substr(section.header, section.body - section.header);
        names.push_back(Utf8ToUtf16(HeaderName(Trim(Utf8Of(header, converted)))));
    }
    return names;
}

void ProfileFile::SetValue(std::u16string_view section, std::u16string_view key,
                           std::u16string_view value) {
    const std::string keyOnDisk = KeyOnDisk(key);
    if (keyOnDisk.empty()) return;
    const std::size_t index = FindOrAddSection(section);
    const std::string bytes = Utf16ToUtf8(OnOneLine(value));
    if (const auto entry = FindKey(sections_[index], key)) {
        // A line is in one encoding: what stands before the value comes with it.
        std::string converted;
        const std::string_view raw(text_.data() + entry->line, entry->end - entry->line);
        const std::string_view line = Utf8Of(raw, converted);
        const std::string whole = std::string(line.substr(0, line.find('=') + 1)) + bytes;
        Splice(index, entry->line, raw.size(), whole);
        return KeepApartFromUtf16();
    }
    if (EndOfEntries(sections_[index]) == text_.size()) FinishLastLine();
    Splice(index, EndOfEntries(sections_[index]), 0, keyOnDisk + "=" + bytes + "\r\n");
    KeepApartFromUtf16();
}

void ProfileFile::SetSection(std::u16string_view section,
                             const std::vector<std::u16string>& lines) {
    const std::size_t index = FindOrAddSection(section);
    std::string block = Comments(sections_[index]);
    const auto asTheyCame = LinesNotUtf8(sections_[index]);
    for (const std::u16string& text : lines) {
        if (const auto old = asTheyCame.find(text); old != asTheyCame.end()) {
            block += old->second + "\r\n";
            continue;
        }
        const std::string line = Utf16ToUtf8(OnOneLine(text));
        const std::string_view trimmed = Trim(line);
        if (trimmed.empty() || IsComment(trimmed) || IsHeader(trimmed)) continue;
        block += line + "\r\n";
    }
    if (!block.empty() && sections_[index].body == text_.size()) FinishLastLine();
    const std::size_t body = sections_[index].body;
    Splice(index, body, EndOfEntries(sections_[index]) - body, block);
    KeepApartFromUtf16();
}

void ProfileFile::RemoveEmptySection(std::u16string_view section) {
    const std::size_t index = FindSection(section);
    if (index == sections_.size()) return;
    const Section found = sections_[index];
    const std::string_view body(text_.data() + found.body, found.end - found.body);
    if (!Trim(body).empty()) return;
    text_.erase(found.header, found.end - found.header);
    Index();
}
