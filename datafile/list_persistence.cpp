#include "datafile/list_persistence.h"

#include "common/text.h"

#include <utility>

namespace {

using Mode = IniFile::WriteMode;

std::u16string Indexed(std::size_t index, std::u16string_view value) {
    return NumberText(static_cast<std::int64_t>(index)).append(u"=").append(value);
}

std::vector<std::u16string> IndexedLines(const std::vector<std::u16string>& values) {
    std::vector<std::u16string> lines;
    lines.reserve(values.size());
    for (const std::u16string& value : values)
        lines.push_back(Indexed(lines.size(), value));
    return lines;
}

std::vector<std::u16string> TextLines(std::u16string_view text, std::u16string_view lineSeparator) {
    if (text.empty()) return {};
    std::vector<std::u16string> lines = Split(text, lineSeparator);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].find(u'=') == std::u16string::npos) lines[i] = Indexed(i, lines[i]);
    }
    return lines;
}

void ReplaceSection(IniFile& file, std::u16string_view section,
                    const std::vector<std::u16string>& lines, Mode mode) {
    file.SetSection(mode, section, lines);
}

// A line without "=" has been written by hand; all of it is the value.
std::vector<std::u16string> Values(IniFile& file, std::u16string_view section) {
    std::vector<std::u16string> values = LoadSectionLines(file, section);
    for (std::u16string& line : values) {
        const std::size_t equals = line.find(u'=');
        if (equals != std::u16string::npos) line.erase(0, equals + 1);
    }
    return values;
}

} // namespace

void SaveListToSection(IniFile& file, std::u16string_view section,
                       const std::vector<std::u16string>& texts) {
    ReplaceSection(file, section, IndexedLines(texts), Mode::KeepTime);
}

void SaveListToSection(IniFile& file, std::u16string_view section,
                       const std::vector<ListItem>& items, std::u16string_view separator) {
    std::vector<std::u16string> values;
    for (const ListItem& item : items) {
        values.push_back(item.text);
        if (!separator.empty()) values.back().append(separator).append(NumberText(item.data));
    }
    ReplaceSection(file, section, IndexedLines(values), Mode::KeepTime);
}

void SaveListToSection(IniFile& file, std::u16string_view section, const MenuArray& menu,
                       std::u16string_view separator) {
    std::vector<std::u16string> values;
    for (const MenuItem& item : menu.items) {
        if (item.IsSeparator()) continue;
        values.push_back(item.caption);
        if (!separator.empty() && !item.tag.empty())
            values.back().append(separator).append(item.tag);
    }
    ReplaceSection(file, section, IndexedLines(values), Mode::KeepTime);
}

void SaveListToSection(IniFile& file, std::u16string_view section, std::u16string_view text,
                       std::u16string_view lineSeparator) {
    ReplaceSection(file, section, TextLines(text, lineSeparator), Mode::KeepTime);
}

std::u16string LoadListFromSection(IniFile& file, std::u16string_view section,
                                   std::vector<std::u16string>* target,
                                   std::u16string_view lineSeparator) {
    std::vector<std::u16string> values = Values(file, section);
    std::u16string text = Join(values, lineSeparator);
    if (target) *target = std::move(values);
    return text;
}

std::u16string LoadListFromSection(IniFile& file, std::u16string_view section,
                                   std::vector<ListItem>& target, std::u16string_view separator) {
    const std::vector<std::u16string> values = Values(file, section);
    target.clear();
    for (const std::u16string_view value : values) {
        // The data is a number and holds no separator; the text may hold one.
        const std::size_t at = separator.empty() ? value.npos : value.rfind(separator);
        const bool hasData = at != value.npos;
        target.push_back({std::u16string(value.substr(0, at)),
                          hasData ? WholeNumber(value.substr(at + separator.size())) : 0});
    }
    return Join(values, lineBreak);
}

std::vector<std::u16string> LoadSectionLines(IniFile& file, std::u16string_view section) {
    return file.Content().SectionLines(section);
}

void SaveSectionText(IniFile& file, std::u16string_view section, std::u16string_view text,
                     std::u16string_view lineSeparator) {
    ReplaceSection(file, section, TextLines(text, lineSeparator), Mode::NewTime);
}

void SaveSectionText(IniFile& file, std::u16string_view section,
                     const std::vector<std::u16string>& texts) {
    ReplaceSection(file, section, IndexedLines(texts), Mode::NewTime);
}

std::u16string LoadSectionText(IniFile& file, std::u16string_view section,
                               std::vector<std::u16string>* target,
                               std::u16string_view lineSeparator) {
    return LoadListFromSection(file, section, target, lineSeparator);
}
