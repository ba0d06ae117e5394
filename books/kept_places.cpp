#include "books/kept_places.h"

#include "common/text.h"
#include "datafile/list_persistence.h"

#include <algorithm>
#include <limits>

namespace {
std::u16string KeyOf(PlacesOf view, std::u16string_view key) {
    return std::u16string(view == PlacesOf::Page ? u"Page" : u"") + std::u16string(key);
}

constexpr std::u16string_view textKey = u"Text", fileKey = u"File", placeKey = u"Place",
                              topKey = u"Top", markKey = u"Mark-";
// After words that were not found. No words hold it: it stands for the place in them, once.
constexpr std::u16string_view uncertainEnd = u"|?";
constexpr std::u16string_view byWords = u"words"; // at the end of a top

std::u16string Stored(const KeptWords& words) {
    return words.words + std::u16string(words.uncertain ? uncertainEnd : u"");
}

KeptWords ParseKept(std::u16string_view value) {
    const bool uncertain = value.ends_with(uncertainEnd) && ParseWords(value) == std::nullopt;
    if (uncertain) value.remove_suffix(uncertainEnd.size());
    return {std::u16string(value), uncertain};
}

// Of digits alone, such as a time of nanoseconds, which fits up to the year 2262; 0 for others.
std::int64_t LongNumber(std::u16string_view digits) {
    std::int64_t value = 0;
    for (const char16_t digit : digits) {
        if (digit < u'0' || digit > u'9') return 0;
        const std::int64_t added = digit - u'0';
        if (value > (std::numeric_limits<std::int64_t>::max() - added) / 10) return 0;
        value = value * 10 + added;
    }
    return value;
}

void ReadFile(std::u16string_view value, KeptPlaces& places) {
    const std::size_t comma = std::min(value.find(u','), value.size());
    places.fileSize = static_cast<std::uint64_t>(LongNumber(value.substr(0, comma)));
    places.fileTime = LongNumber(value.substr(std::min(comma + 1, value.size())));
}

KeptTop ParseTop(std::u16string_view value) {
    const auto parts = Split(value, u",");
    const bool byWordsAlone = parts.size() == 4 && parts[3] == byWords;
    if (parts.size() != 3 && !byWordsAlone) return {};
    return {WholeNumber(parts[0]), WholeNumber(parts[1]), WholeNumber(parts[2]), byWordsAlone};
}

void ReadLine(std::u16string_view key, std::u16string_view value, KeptPlaces& places) {
    if (EqualIgnoringCase(key, textKey)) {
        places.text = ParseFingerprint(value);
    } else if (EqualIgnoringCase(key, fileKey)) {
        ReadFile(value, places);
    } else if (EqualIgnoringCase(key, placeKey)) {
        const std::size_t comma = value.find(u',');
        if (comma == value.npos) return;
        places.position = WholeNumber(value.substr(0, comma));
        places.place = ParseKept(value.substr(comma + 1));
    } else if (EqualIgnoringCase(key, topKey)) {
        places.top = ParseTop(value);
    } else if (StartsWithIgnoringCase(key, markKey)) {
        places.marks[WholeNumber(key.substr(markKey.size()))] = ParseKept(value);
    }
}

std::u16string FileText(const KeptPlaces& places) {
    return NumberText(static_cast<std::int64_t>(places.fileSize)) + u',' +
           NumberText(places.fileTime);
}

std::u16string PlaceText(const KeptPlaces& places) {
    return NumberText(places.position) + u',' + Stored(places.place);
}

std::u16string TopText(const KeptTop& top) {
    std::vector<std::u16string> parts = {NumberText(top.offset), NumberText(top.above),
                                         NumberText(top.length)};
    if (top.byWordsAlone) parts.emplace_back(byWords);
    return Join(parts, u",");
}

// Rewrites the whole section, since a key can be taken out in no other way.
void StoreMarks(const BookSettings& settings, PlacesOf view, const KeptPlaces& places) {
    const std::u16string start = KeyOf(view, markKey);
    const ListLines before = LoadSectionLines(settings.file, settings.section);
    ListLines lines;
    for (const std::u16string& line : before)
        if (!StartsWithIgnoringCase(line, start)) lines.push_back(line);
    for (const auto& [position, words] : places.marks)
        lines.push_back(start + NumberText(position) + u'=' + Stored(words));
    settings.file.MergeSection(settings.section, before, lines);
}
} // namespace

KeptPlaces LoadPlaces(const BookSettings& settings, PlacesOf view) {
    const std::u16string start = KeyOf(view, u"");
    KeptPlaces places;
    for (const std::u16string& line : LoadSectionLines(settings.file, settings.section)) {
        const std::size_t equals = line.find(u'=');
        if (equals == line.npos || !StartsWithIgnoringCase(line, start)) continue;
        const std::u16string_view whole(line);
        ReadLine(Trim(whole.substr(start.size(), equals - start.size())),
                 Trim(whole.substr(equals + 1)), places);
    }
    return places;
}

KeptPlaces LoadKeptText(const BookSettings& settings, PlacesOf view) {
    KeptPlaces places;
    places.text = ParseFingerprint(settings.Read(KeyOf(view, textKey)));
    if (places.text) ReadFile(settings.Read(KeyOf(view, fileKey)), places);
    return places;
}

void StorePlaces(const BookSettings& settings, PlacesOf view, const KeptPlaces& places,
                 KeptPlaces& stored) {
    if (places == stored || !places.text) return;
    IniBatch oneWrite(settings.file);
    settings.Write(KeyOf(view, textKey), StoredFingerprint(*places.text));
    settings.Write(KeyOf(view, fileKey), FileText(places));
    if (places.position >= 0) settings.Write(KeyOf(view, placeKey), PlaceText(places));
    if (places.position >= 0 && view == PlacesOf::Page)
        settings.Write(KeyOf(view, topKey), TopText(places.top));
    if (places.marks != stored.marks) StoreMarks(settings, view, places);
    stored = places;
    oneWrite.Commit();
}
