// What finding a word at the end costs, in War and Peace and in a plain text of 100 MB, in several
// scripts and encodings.
//
//   find_bench [folder of books]     War and Peace as text is looked for there
//
// The minimum of several runs by the processor's clock: so other programs disturb little.
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "formats/plain/plain_text_source.h"

#include <algorithm>
#include <cctype>
#include <ctime>
#include <functional>
#include <map>

namespace {
constexpr std::size_t longBook = 100'000'000; // bytes
constexpr int runs = 7;

double ThreadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

template <typename Work>
double Milliseconds(Work work) {
    const double start = ThreadMilliseconds();
    work();
    return ThreadMilliseconds() - start;
}

// Letters of another script for the English ones, so often as those.
std::u16string Spelt(std::u16string_view text, char16_t a, std::u16string_view letters) {
    std::u16string spelt;
    for (const char16_t unit : text) {
        const bool capital = unit >= u'A' && unit <= u'Z';
        const bool small = unit >= u'a' && unit <= u'z';
        if (!capital && !small) spelt += unit;
        if (small) spelt += letters[unit - u'a'];
        if (capital) spelt += static_cast<char16_t>(letters[unit - u'A'] - a);
    }
    return spelt;
}

// An ideograph for each word, the same for the same.
std::u16string Ideographs(std::u16string_view text) {
    std::u16string ideographs;
    std::map<std::u16string, char16_t> known;
    std::u16string word;
    for (const char16_t unit : text) {
        if (unit < 0x80 && std::isalpha(unit)) {
            word += unit;
            continue;
        }
        if (!word.empty())
            ideographs +=
                known.try_emplace(word, 0x4E00 + known.size() * 7919 % 20900).first->second;
        word.clear();
        if (unit != u' ') ideographs += unit == u'.' ? u'\u3002' : unit;
    }
    return ideographs;
}

const std::u16string cyrillic = u"абцдефгхийклмнопярстувьжыз",
                     greek = u"αβξδεφγηιϊκλμνοπθρστυψωχάζ";
const std::u16string accented = u"abçdéfghijklmñopqrstuvwxyz";

std::u16string Greek(std::u16string_view text) {
    std::u16string spelt;
    for (const char16_t unit : text)
        spelt += unit < 0x80 && std::isalpha(unit) ? greek[(unit | 0x20) - u'a'] : unit;
    return spelt;
}

std::string Encoded(std::u16string_view text, const std::string& encoding) {
    if (encoding == "UTF-8") return Utf16ToUtf8(text);
    std::string bytes;
    for (const char16_t unit : text)
        if (encoding == "UTF-16")
            bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        else if (encoding == "1251")
            bytes += static_cast<char>(unit >= 0x410 && unit < 0x450 ? unit - 0x350 : unit);
        else
            bytes += static_cast<char>(unit);
    return bytes;
}

struct TextScript {
    const char* name;
    std::function<std::u16string(std::u16string_view)> spell;
    std::vector<const char*> encodings;
    std::vector<std::u16string> words; // in no place of the book but at the end
};

// In any case, which costs the most.
double FindAtEnd(const std::filesystem::path& path, const std::string& bytes, int codePage,
                 const std::u16string& word) {
    WriteFile(path, bytes);
    ReadStatus status;
    const std::shared_ptr<const FileReader> file =
        PosixFiles().Open(Utf8ToUtf16(path.string()), status);
    const PlainTextSource source(file, codePage, 1252);
    const TextPos expected = source.Length() - TextPos(word.size()) - 1;
    double time = 1e9;
    for (int run = 0; run < runs; ++run) {
        TextPos found = 0;
        time = std::min(time, Milliseconds([&] { found = source.Find(word, 0, {}); }));
        if (found != expected) std::printf("FOUND AT %d, NOT AT %d\n", found, expected);
    }
    return time;
}

void BenchWord(const std::filesystem::path& path, const TextScript& script,
               const std::string& encoding, const std::u16string& text,
               const std::u16string& word) {
    const std::string book = Encoded(text, encoding);
    const std::string line = Encoded(u"\n" + word + u"\n", encoding);
    const int codePage = encoding == "1251" ? 1251 : 1252;
    std::string library;
    while (library.size() < longBook)
        library += book;
    std::printf("%-14s %-7s %8.2f %8.1f  %s\n", script.name, encoding.c_str(),
                FindAtEnd(path, book + line, codePage, word),
                FindAtEnd(path, library + line, codePage, word), Utf16ToUtf8(word).c_str());
}
} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path books = argc > 1 ? argv[1] : "../shared/books";
    const std::string text = ReadFile(books / "txt/War and Peace.txt");
    if (text.empty()) {
        Note("left out: no War and Peace in " + books.string());
        return 0;
    }
    const auto same = [](std::u16string_view each) { return std::u16string(each); };
    const auto inCyrillic = [](std::u16string_view each) { return Spelt(each, 0x20, cyrillic); };
    const auto inAccented = [](std::u16string_view each) { return Spelt(each, 0x20, accented); };
    // With a rare letter, with common ones, with letters that have a third form.
    const TextScript scripts[] = {
        {"English", same, {"UTF-8", "UTF-16"}, {u"quodlibetical", u"restherine", u"kiss's"}},
        {"Cyrillic",
         inCyrillic,
         {"UTF-8", "1251", "UTF-16"},
         {u"яуодлибетицал", u"рестхерине", u"кисс'с"}},
        {"Greek", Greek, {"UTF-8", "UTF-16"}, {u"θυοδλιβετιξαλ", u"ρεστηερινε", u"κισσ'σ"}},
        {"accented Latin", inAccented, {"UTF-8", "1252"}, {u"quodlibétiçal", u"résthériñé"}},
        {"ideographs", Ideographs, {"UTF-8", "UTF-16"}, {u"一泯诞泯"}},
    };
    std::printf("%-22s %8s %8s\n", "ms", "the book", "100 MB");
    const TemporaryFolder folder;
    for (const TextScript& script : scripts) {
        const std::u16string spelt = script.spell(Utf8ToUtf16(text));
        for (const std::string encoding : script.encodings)
            for (const std::u16string& word : script.words)
                BenchWord(folder.path / "book.txt", script, encoding, spelt, word);
    }
    return 0;
}
