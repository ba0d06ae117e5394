#include "datafile/profile_list.h"

#include "common/text.h"
#include "datafile/list_persistence.h"

#include <algorithm>
#include <limits>

namespace {

struct Numbered {
    std::int64_t number;
    std::u16string name;
};

// A line without "=" has been written by hand; all of it is the name.
Numbered Parsed(const std::u16string& line) {
    const std::size_t equals = line.find(u'=');
    if (equals == std::u16string::npos) return {std::numeric_limits<std::int64_t>::max(), line};
    const auto key = std::u16string_view(line).substr(0, equals);
    const bool isNumber = !key.empty() && std::ranges::all_of(key, [](char16_t unit) {
        return unit >= u'0' && unit <= u'9';
    });
    return {isNumber ? WholeNumber(key) : std::numeric_limits<std::int64_t>::max(),
            line.substr(equals + 1)};
}

bool Holds(const ListLines& names, const std::u16string& name) {
    return std::ranges::any_of(
        names, [&](const std::u16string& other) { return EqualIgnoringCase(other, name); });
}

} // namespace

ListLines LoadProfileNames(IniFile& file) {
    std::vector<Numbered> profiles;
    for (const std::u16string& line : LoadSectionLines(file, profileListSection))
        profiles.push_back(Parsed(line));
    std::ranges::stable_sort(profiles, {}, &Numbered::number);
    ListLines names;
    for (const Numbered& profile : profiles)
        if (!profile.name.empty() && !Holds(names, profile.name)) names.push_back(profile.name);
    return names;
}

void SaveProfileNames(IniFile& file, const ListLines& names, ListLines& inFile) {
    inFile = MergedList(inFile, names, LoadProfileNames(file), WholeLine);
    SaveListToSection(file, profileListSection, inFile);
}
