#include "common/profile_file.h"

#include "common/profile_text.h"
#include "common/utf.h"

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

std::u16string DecodeUtf16(std::string_view bytes, bool bigEndian) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

std::string BytesAsUtf8(std::string_view bytes, int ansiCodePage, ProfileFile::Decoder decoder) {
    if (bytes.starts_with("\xFF\xFE")) return Utf16ToUtf8(DecodeUtf16(bytes.substr(2), false));
    if (bytes.starts_with("\xFE\xFF")) return Utf16ToUtf8(DecodeUtf16(bytes.substr(2), true));
    if (IsValidUtf8(bytes)) return std::string(bytes);
    return Utf16ToUtf8(decoder(ansiCodePage, bytes));
}

} // namespace

ProfileFile ProfileFile::Parse(std::string_view bytes, int ansiCodePage, Decoder decoder) {
    ProfileFile file;
    file.text_ = BytesAsUtf8(bytes, ansiCodePage, decoder);
    file.Index();
    return file;
}

void ProfileFile::Index() {
    sections_.clear();
    const std::size_t start = text_.starts_with(utf8Mark) ? utf8Mark.size() : 0;
    LineWalk walk(text_, start, text_.size());
    while (walk.Next()) {
        const std::string_view line = TrimLine(walk.Line());
        if (!IsHeader(line)) continue;
        if (!sections_.empty()) sections_.back().end = walk.LineBegin();
        sections_.push_back(
            {FoldedName(HeaderName(line)), walk.LineBegin(), walk.LineNext(), text_.size()});
    }
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
    while (walk.Next()) {
        const std::string_view line = walk.Line();
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        // No key begins with ";", so a comment is never taken for one.
        if (!NameIs(TrimLine(line.substr(0, equals)), folded)) continue;
        const std::size_t value = walk.LineBegin() + equals + 1;
        return Entry{value, walk.LineEnd()};
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

std::string ProfileFile::Comments(const Section& section) const {
    std::string comments;
    LineWalk walk(text_, section.body, section.end);
    while (walk.Next()) {
        if (!IsComment(TrimLine(walk.Line()))) continue;
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
    const auto raw = std::string_view(text_).substr(entry->value, entry->end - entry->value);
    return Utf8ToUtf16(WithoutQuotes(TrimLine(raw)));
}

std::vector<std::u16string> ProfileFile::SectionLines(std::u16string_view section) const {
    std::vector<std::u16string> lines;
    const std::size_t index = FindSection(section);
    if (index == sections_.size()) return lines;
    LineWalk walk(text_, sections_[index].body, sections_[index].end);
    while (walk.Next()) {
        const std::string_view line = TrimLine(walk.Line());
        if (line.empty() || IsComment(line)) continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            lines.push_back(Utf8ToUtf16(line));
            continue;
        }
        std::string entry(TrimLine(line.substr(0, equals)));
        entry += '=';
        entry += TrimLine(line.substr(equals + 1));
        lines.push_back(Utf8ToUtf16(entry));
    }
    return lines;
}

std::vector<std::u16string> ProfileFile::SectionNames() const {
    std::vector<std::u16string> names;
    for (const Section& section : sections_) {
        const auto header =
            std::string_view(text_).substr(section.header, section.body - section.header);
        names.push_back(Utf8ToUtf16(HeaderName(TrimLine(header))));
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
        Splice(index, entry->value, entry->end - entry->value, bytes);
        return;
    }
    if (EndOfEntries(sections_[index]) == text_.size()) FinishLastLine();
    Splice(index, EndOfEntries(sections_[index]), 0, keyOnDisk + "=" + bytes + "\r\n");
}

void ProfileFile::SetSection(std::u16string_view section,
                             const std::vector<std::u16string>& lines) {
    const std::size_t index = FindOrAddSection(section);
    std::string block = Comments(sections_[index]);
    for (const std::u16string& text : lines) {
        const std::string line = Utf16ToUtf8(OnOneLine(text));
        const std::string_view trimmed = TrimLine(line);
        if (trimmed.empty() || IsComment(trimmed) || IsHeader(trimmed)) continue;
        block += line + "\r\n";
    }
    if (!block.empty() && sections_[index].body == text_.size()) FinishLastLine();
    const std::size_t body = sections_[index].body;
    Splice(index, body, EndOfEntries(sections_[index]) - body, block);
}
