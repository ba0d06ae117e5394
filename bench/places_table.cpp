// How often places are found again, by kind of edit, and what that costs: the tables of
// docs/places.md.
//
//   places_table [folder of books] [books of each kind]
#include "bench/stopwatch.h"
#include "common/string_text.h"
#include "formats/plain/plain_text_source.h"
#include "reading/find_places.h"
#include "reading/text_fingerprint.h"
#include "tests/unit/book_editions.h"
#include "tests/unit/text_edits.h"

#include "common/utf.h"

#include <cstdio>
#include <cstdlib>

namespace {
double Percent(int part, int whole) {
    return whole == 0 ? 0 : 100.0 * part / whole;
}

void PrintEdits(int books) {
    std::printf(
        "| what was done to a random book | places | their words survive | of these exact, %% "
        "| certain, %% | certain and wrong |\n|---|---|---|---|---|---|\n");
    for (const EditKind& kind : EditKinds()) {
        PlaceTally tally;
        for (int book = 0; book < books; ++book) {
            std::mt19937 random(static_cast<unsigned>(book));
            const std::u16string before = RandomBook(random, 20 + static_cast<int>(random() % 150));
            NumberedText after = Numbered(before);
            kind.apply(after, random);
            tally.Add(TryPlaces(before, after, 40, random));
        }
        std::printf("| %s | %d | %d | %.2f | %.1f | %d |\n", kind.name, tally.places,
                    tally.survived, Percent(tally.exact, tally.survived),
                    Percent(tally.certain, tally.places), tally.astray);
    }
}

void PrintEditions(const std::map<std::string, std::u16string>& editions) {
    std::printf("\n| War and Peace, from | to | found of 1,000 |\n|---|---|---|\n");
    for (const auto& [from, text] : editions)
        for (const auto& [to, other] : editions)
            if (from != to)
                std::printf("| %s | %s | %d |\n", from.c_str(), to.c_str(),
                            PlacesFound(text, other, 1000));
}

std::vector<KnownPlace> Known(const TextSource& text, int count) {
    std::vector<KnownPlace> places;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto place = static_cast<TextPos>(text.Length() * (i + 1) / (count + 1));
        places.push_back({place, WordsAround(text, place)});
    }
    return places;
}

void PrintTimes(const std::string& name, const std::u16string& before,
                const std::u16string& after) {
    const StringText old(before);
    const auto source = std::make_shared<PlainTextSource>(
        std::make_shared<BytesReader>(Utf16ToUtf8(after)), 0, 1252);
    const auto places = Known(old, 1000);
    const double floor = Time([&] {
        for (TextPos at = 0; at < source->Length(); at = source->PieceAt(at).End())
            Keep(source->PieceAt(at).units.size());
    });
    TableHead((name + ", changed in 100 places").c_str(), "decoding the text");
    Row("fingerprint", Time([&] { Keep(FingerprintOf(*source)); }), floor);
    Row("find 1,000 places",
        Time([&] { Keep(FindPlaces(*source, old.Length(), places, [] { return true; })); }), floor);
    Row("words around 1,000 places", Time([&] { Keep(Known(old, 1000)); }), floor);
}

std::u16string Changed(const std::u16string& text) {
    std::u16string changed;
    for (std::size_t i = 0; i < 100; ++i)
        changed += text.substr(text.size() / 100 * i, text.size() / 100) + u" and so on ";
    return changed;
}
// The same letters over and over would be another book: in each volume they stand for others.
std::u16string LargeBook(const std::u16string& book) {
    std::u16string large;
    for (int volume = 0; large.size() < 100'000'000; ++volume)
        for (const char16_t unit : book) {
            const bool small = unit >= u'a' && unit <= u'z';
            large +=
                small ? static_cast<char16_t>(u'a' + (unit - u'a' + volume * 7) % 26 + volume / 26)
                      : unit;
        }
    return large;
}
} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : "../shared/books";
    PrintEdits(argc > 2 ? std::atoi(argv[2]) : 200);
    const auto editions = Editions(folder);
    PrintEditions(editions);
    if (!editions.contains("text")) return 0;
    const std::u16string& book = editions.at("text");
    PrintTimes("War and Peace", book, Changed(book));
    PrintTimes("100 MB", LargeBook(book), Changed(LargeBook(book)));
}
