// Any bytes as a profile file, then any changes: each reads back, and touches nothing but its own
// entry.
#include "common/profile_file.h"
#include "common/profile_text.h"
#include "common/text.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "tests/fuzz/require.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <map>

namespace {

using Lines = std::vector<std::u16string>;

std::u16string Decode(int codePage, std::string_view bytes) {
    std::u16string text;
    DecodeCodePage(codePage, bytes, text);
    return text;
}

std::u16string Fold(std::u16string_view section) {
    return FoldedName(SectionNameOnDisk(section));
}

// What each section lists, by its folded name.
std::map<std::u16string, Lines> AllLines(const ProfileFile& file) {
    std::map<std::u16string, Lines> all;
    for (const std::u16string& name : file.SectionNames())
        all[Fold(name)] = file.SectionLines(name);
    return all;
}

std::u16string Text(FuzzedDataProvider& data) {
    const std::string bytes = data.ConsumeRandomLengthString(40);
    if (data.ConsumeBool()) return Utf8ToUtf16(bytes);
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                      static_cast<unsigned char>(bytes[i + 1]));
    }
    return text;
}

// A name that is there already, most of the time.
std::u16string SectionName(FuzzedDataProvider& data, const ProfileFile& file) {
    const Lines names = file.SectionNames();
    if (names.empty() || data.ConsumeIntegralInRange(0, 3) == 0) return Text(data);
    return names[data.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)];
}

std::u16string KeyName(FuzzedDataProvider& data, const Lines& lines) {
    if (lines.empty() || data.ConsumeIntegralInRange(0, 3) == 0) return Text(data);
    const auto& line = lines[data.ConsumeIntegralInRange<std::size_t>(0, lines.size() - 1)];
    return line.substr(0, line.find(u'='));
}

std::u16string TrimmedLine(std::u16string_view text) {
    return Utf8ToUtf16(Trim(Utf16ToUtf8(OnOneLine(text))));
}

void SetValue(ProfileFile& file, const std::u16string& section, FuzzedDataProvider& data) {
    const Lines before = file.SectionLines(section);
    const std::u16string key = KeyName(data, before), value = Text(data);
    const bool isNew = !file.Value(section, key);
    file.SetValue(section, key, value);
    if (KeyOnDisk(key).empty()) {
        Require(file.SectionLines(section) == before);
        return;
    }
    const std::string stored = Utf16ToUtf8(TrimmedLine(value));
    Require(file.Value(section, key) == Utf8ToUtf16(WithoutQuotes(stored)));
    const Lines after = file.SectionLines(section);
    Require(after.size() == before.size() + isNew);
    std::size_t changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        changed += after[i] != before[i];
    Require(changed <= !isNew);
}

void SetSection(ProfileFile& file, const std::u16string& section, FuzzedDataProvider& data) {
    Lines lines, listed;
    for (int i = data.ConsumeIntegralInRange(0, 5); i > 0; --i)
        lines.push_back(Text(data));
    file.SetSection(section, lines);
    for (const std::u16string& line : lines) {
        const std::u16string trimmed = TrimmedLine(line);
        if (trimmed.empty() || trimmed[0] == u';' || trimmed[0] == u'[') continue;
        const std::size_t equals = trimmed.find(u'=');
        listed.push_back(equals == trimmed.npos ? trimmed
                                                : TrimmedLine(trimmed.substr(0, equals)) + u"=" +
                                                      TrimmedLine(trimmed.substr(equals + 1)));
    }
    Require(file.SectionLines(section) == listed);
}

void Change(ProfileFile& file, FuzzedDataProvider& data) {
    const std::u16string section = SectionName(data, file);
    auto before = AllLines(file);
    if (data.ConsumeIntegralInRange(0, 7) < 6)
        SetValue(file, section, data);
    else
        SetSection(file, section, data);

    auto after = AllLines(file);
    before.erase(Fold(section));
    after.erase(Fold(section));
    Require(before == after);
}

} // namespace

// The input is a file; what follows a line "%%" chooses the changes, without one the file itself
// does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::string_view mark = "\n%%\n";
    const std::string_view input(reinterpret_cast<const char*>(bytes), size);
    const std::size_t end = input.find(mark);
    const std::size_t script = end == input.npos ? 0 : end + mark.size();

    ProfileFile file = ProfileFile::Parse(input.substr(0, end), 1252, Decode);
    FuzzedDataProvider steps(bytes + script, size - script);
    for (int i = steps.ConsumeIntegralInRange(0, 8); i > 0; --i)
        Change(file, steps);

    const ProfileFile again = ProfileFile::Parse(file.ToBytes(), 1252, Decode);
    Require(again.ToBytes() == file.ToBytes());
    Require(again.SectionNames() == file.SectionNames());
    Require(AllLines(again) == AllLines(file));
    return 0;
}
