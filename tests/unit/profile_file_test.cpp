#include "common/profile_file.h"
#include "common/utf.h"

#include "allocations.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace {

std::u16string FromLatin1(int, std::string_view bytes) {
    std::u16string text;
    for (const char byte : bytes)
        text += static_cast<unsigned char>(byte);
    return text;
}

ProfileFile Parse(std::string_view bytes) {
    return ProfileFile::Parse(bytes, 1252, FromLatin1);
}

std::string ValueOf(const ProfileFile& file, std::u16string_view section, std::u16string_view key) {
    const auto value = file.Value(section, key);
    return value ? Utf16ToUtf8(*value) : "(none)";
}

std::string Listed(const ProfileFile& file, std::u16string_view section) {
    std::string all;
    for (const std::u16string& line : file.SectionLines(section))
        all += Utf16ToUtf8(line) + "|";
    return all;
}

} // namespace

TEST_CASE("profile file: names beyond the first plane are told apart by both halves") {
    const std::u16string other = u"\U00010000", key = u"\U00010400"; // of one low surrogate
    const ProfileFile file = Parse("[s]\n\xF0\x90\x90\x80=1\n");
    CHECK(ValueOf(file, u"s", key) == "1");
    CHECK(ValueOf(file, u"s", other) == "(none)");
    CHECK(ValueOf(file, u"s", key.substr(0, 1)) == "(none)");
    CHECK(ValueOf(file, u"s", key + u"x") == "(none)");
}

TEST_CASE("profile file: one that a change makes look like UTF-16 gets a mark, and goes on being "
          "changed") {
    std::string zeros;
    for (int i = 0; i < 100; ++i)
        zeros += std::string("\0a", 2);
    ProfileFile file = Parse(std::string("[s]\r\nz=\0\r\n", 10) + zeros + "\r\n[t]\r\nx=1\r\n");
    file.SetValue(u"s", u"z", u"1"); // the only zero at an odd place goes
    file.SetValue(u"t", u"y", u"2");
    const std::string marked = "\xEF\xBB\xBF[s]\r\nz=1\r\n";
    CHECK(file.ToBytes() == marked + zeros + "\r\n[t]\r\nx=1\r\ny=2\r\n");
    CHECK((file.SectionNames() == std::vector<std::u16string>{u"s", u"t"}));
    CHECK(ValueOf(file, u"t", u"x") == "1");
}

TEST_CASE("profile file: reading a value by key") {
    const struct {
        const char *bytes, *value; // of key "k" in section "s"
    } cases[] = {
        {"", "(none)"},
        {"k=1\r\n", "(none)"},
        {"[s]", "(none)"},
        {"[s]\r\nk=1", "1"},
        {"[s]\nk=1\n", "1"},
        {"[s]\rk=1\r", "1"},
        {"[S]\r\nK=1\r\n", "1"},
        {"[s]\r\n \t k \t= \t1 \t\r\n", "1"},
        {"  [ s ]  \r\nk=1", "1"},
        {"\t[\ts\v] and more\r\nk=1", "1"},
        {"[s\r\nk=1", "1"},
        {"[s]k=1\r\n", "(none)"},
        {"s]\r\nk=1", "(none)"},
        {"[s]\r\nk=a=b=c", "a=b=c"},
        {"[s]\r\nk=", ""},
        {"[s]\r\nk", "(none)"},
        {"[s]\r\n;k=1", "(none)"},
        {"[s]\r\n  ;k=1", "(none)"},
        {"[s]\r\nk=;1", ";1"},
        {"[s]\r\nk=1 ;2", "1 ;2"},
        {"[s]\r\n#k=1\r\nk=2", "2"},
        {"[s]\r\nk=1\r\nk=2", "1"},
        {"[s]\r\n[s]\r\nk=2", "(none)"},
        {"[t]\r\nk=0\r\n[s]\r\nk=1\r\n[s]\r\nk=2", "1"},
        {"[s]\r\n[t]\r\nk=1", "(none)"},
        {"[s]\r\nk=\" a \"", " a "},
        {"[s]\r\nk=' a '", " a "},
        {"[s]\r\nk=  \"a\"  ", "a"},
        {"[s]\r\nk=\"'a'\"", "'a'"},
        {"[s]\r\nk=\"a'", "\"a'"},
        {"[s]\r\nk=\"a\" b", "\"a\" b"},
        {"[s]\r\nk=\"", "\""},
        {"[s]\r\nk=\"\"", ""},
        {"\xEF\xBB\xBF[s]\r\nk=1", "1"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.bytes);
        CHECK(ValueOf(Parse(c.bytes), u"s", u"k") == c.value);
        CHECK(ValueOf(Parse(c.bytes), u" S ", u"\tK ") == c.value);
        CHECK(Parse(c.bytes).ToBytes() == c.bytes);
    }
}

TEST_CASE("profile file: names without case beyond ASCII") {
    const ProfileFile file = Parse("[Книги]\r\nВойна и мир 𝄞=1\r\nſ=2\r\n[\u0131]\r\nk=3\r\n");
    CHECK(ValueOf(file, u"КНИГИ", u"ВОЙНА И МИР 𝄞") == "1");
    CHECK(ValueOf(file, u"книги", u"война и мир 𝄞") == "1");
    CHECK(ValueOf(file, u"книги", u"война и мир 𝄢") == "(none)");
    CHECK(ValueOf(file, u"книги", u"война и мир") == "(none)");
    CHECK(ValueOf(file, u"книги", u"s") == "2");
    CHECK(ValueOf(file, u"I", u"k") == "3");
    CHECK(ValueOf(file, u"", u"k") == "(none)");
    CHECK(ValueOf(file, u"книги", u"") == "(none)");
}

TEST_CASE("profile file: listing a section") {
    const ProfileFile file = Parse("outside=0\r\n[a]\r\n ; no\r\n\r\n b = 1 \r\nbare\r\n=x\r\nq=\" "
                                   "y \"\r\nb=2\r\n[B]\r\n[a]\r\nc=3");
    CHECK(Listed(file, u"A") == "b=1|bare|=x|q=\" y \"|b=2|");
    CHECK(Listed(file, u"b") == "");
    CHECK(Listed(file, u"c") == "");
    CHECK(file.SectionNames() == std::vector<std::u16string>{u"a", u"B", u"a"});
}

TEST_CASE("profile file: writing a value changes nothing else") {
    const struct {
        const char *before, *after; // SetValue(u"s", u"k", u"v")
    } cases[] = {
        {"", "[s]\r\nk=v\r\n"},
        {"; note", "; note\r\n[s]\r\nk=v\r\n"},
        {"[t]\nx=1\n", "[t]\nx=1\n[s]\r\nk=v\r\n"},
        {"[t]\nx=1", "[t]\nx=1\r\n[s]\r\nk=v\r\n"},
        {"[s]", "[s]\r\nk=v\r\n"},
        {"[s]\n", "[s]\nk=v\r\n"},
        {"[s]\na=1", "[s]\na=1\r\nk=v\r\n"},
        {"[s]\na=1\n\n \n[t]\nb=2\n", "[s]\na=1\nk=v\r\n\n \n[t]\nb=2\n"},
        {"[s]\r\n\r\n[t]", "[s]\r\nk=v\r\n\r\n[t]"},
        {"[S]\n K =old\nz=1", "[S]\n K =v\nz=1"},
        {"[s]\nk=old", "[s]\nk=v"},
        {"[s]\nk\n", "[s]\nk\nk=v\r\n"},
        {"[s]\n;k=1\n", "[s]\n;k=1\nk=v\r\n"},
        {"[s] x\rk=1\rk=2\r[s]\rk=3", "[s] x\rk=v\rk=2\r[s]\rk=3"},
        {"\xEF\xBB\xBF[s]\nk=1\n", "\xEF\xBB\xBF[s]\nk=v\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.before);
        ProfileFile file = Parse(c.before);
        file.SetValue(u"s", u"k", u"v");
        CHECK(file.ToBytes() == c.after);
        CHECK(ValueOf(file, u"s", u"k") == "v");
        CHECK(ValueOf(Parse(file.ToBytes()), u"s", u"k") == "v");
    }
}

TEST_CASE("profile file: sections after a changed one are still found") {
    ProfileFile file = Parse("[a]\r\nx=1\r\n[b]\r\ny=2\r\n[c]\r\nz=3\r\n");
    file.SetValue(u"a", u"x", u"a much longer value");
    file.SetValue(u"b", u"new", u"");
    file.SetValue(u"a", u"x", u"");
    CHECK(file.ToBytes() == "[a]\r\nx=\r\n[b]\r\ny=2\r\nnew=\r\n[c]\r\nz=3\r\n");
    CHECK(ValueOf(file, u"c", u"z") == "3");
    file.SetSection(u"b", {u"only=1"});
    CHECK(ValueOf(file, u"c", u"z") == "3");
    file.SetSection(u"b", {});
    CHECK(ValueOf(file, u"c", u"z") == "3");
    CHECK(file.ToBytes() == "[a]\r\nx=\r\n[b]\r\n[c]\r\nz=3\r\n");
}

TEST_CASE("profile file: a header without a line end is finished for good") {
    ProfileFile file = Parse("[a]");
    file.SetValue(u"b", u"y", u"2");
    file.SetSection(u"a", {});
    CHECK(file.ToBytes() == "[a]\r\n[b]\r\ny=2\r\n");

    file = Parse("[a]");
    file.SetValue(u"a", u"x", u"1");
    file.SetValue(u"b", u"y", u"2");
    file.SetSection(u"a", {});
    CHECK(file.ToBytes() == "[a]\r\n[b]\r\ny=2\r\n");
}

TEST_CASE("profile file: a name or value never spoils the file") {
    ProfileFile file = Parse("[s]\r\na=1\r\n[t]\r\nb=2\r\n");
    const std::string before = file.ToBytes();
    for (const char16_t* key : {u"", u" ", u"a=b", u";c", u"[t]", u"[", u" =", u" ;"}) {
        file.SetValue(u"s", key, u"x");
        CHECK(file.ToBytes() == before);
        CHECK(ValueOf(file, u"s", key) == "(none)");
    }
    file.SetValue(u"s", u"a", std::u16string_view(u"1\r\n[t]\nb=3\0x", 12));
    CHECK(file.ToBytes() == "[s]\r\na=1  [t] b=3 x\r\n[t]\r\nb=2\r\n");
    file.SetValue(u"s", u"new\rkey", u"1");
    CHECK(ValueOf(file, u"s", u"new\rkey") == "1");
    file.SetValue(u"x]y\n", u"k", u"1");
    file.SetValue(u"x]y\n", u"k", u"2");
    CHECK(ValueOf(file, u"x]y", u"k") == "2");
    CHECK(ValueOf(file, u"x", u"k") == "(none)");
    file.SetValue(u"x", u"lone\xD800", u"3");
    file.SetValue(u"x", u"lone\xD800", u"4");
    CHECK(ValueOf(Parse(file.ToBytes()), u"x", u"lone\xD800") == "4");
    CHECK(file.SectionNames() == std::vector<std::u16string>{u"s", u"t", u"x}y", u"x"});
}

TEST_CASE("profile file: replacing whole sections") {
    const struct {
        const char* before;
        std::vector<std::u16string> lines; // of section "s"
        const char* after;
    } cases[] = {
        {"", {}, "[s]\r\n"},
        {"", {u"0=a"}, "[s]\r\n0=a\r\n"},
        {"[s]", {u"0=a"}, "[s]\r\n0=a\r\n"},
        {"[s]", {}, "[s]"},
        {"[S] x\n0=old\n1=old\n\n[t]\ny=1", {u"0=a", u"1=b"}, "[S] x\n0=a\r\n1=b\r\n\n[t]\ny=1"},
        {"[s]\n0=old\n[t]\n", {}, "[s]\n[t]\n"},
        {"[s]\n0=old\n; note\n1=x\n", {u"0=a"}, "[s]\n; note\n0=a\r\n"},
        {"[s]\n0=old\n; note", {u"0=a"}, "[s]\n; note\r\n0=a\r\n"},
        {"[s]\n", {u"", u" ", u"[t]", u" ;x", u"plain", u"a\nb=1"}, "[s]\nplain\r\na b=1\r\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.before);
        ProfileFile file = Parse(c.before);
        file.SetSection(u"s", c.lines);
        CHECK(file.ToBytes() == c.after);
        file.SetSection(u"s", c.lines);
        CHECK(file.ToBytes() == c.after);
    }
}

TEST_CASE("profile file: an empty section goes with its header") {
    const auto without = [](std::string_view bytes, std::u16string_view section) {
        ProfileFile file = Parse(bytes);
        file.RemoveEmptySection(section);
        file.SetValue(u"last", u"k", u"2"); // still found where it is
        return file.ToBytes();
    };
    CHECK(without("[a]\r\n\r\n[last]\r\nk=1\r\n", u"A") == "[last]\r\nk=2\r\n");
    CHECK(without("[first]\r\n[a]\r\n[last]\r\nk=1\r\n", u"a") == "[first]\r\n[last]\r\nk=2\r\n");
    CHECK(without("[last]\r\nk=1\r\n[a]", u"a") == "[last]\r\nk=2\r\n");
    for (const std::string_view kept :
         {"[a]\r\nb=1\r\n[last]\r\nk=2\r\n", "[a]\r\n;mine\r\n[last]\r\nk=2\r\n",
          "[a]\r\nword\r\n[last]\r\nk=2\r\n", "[last]\r\nk=2\r\n"})
        CHECK(without(kept, u"a") == kept);
}

TEST_CASE("profile file: bytes of any kind") {
    using namespace std::string_literals;
    SUBCASE("a line that is not UTF-8 is read, and stays until its value changes") {
        ProfileFile file = Parse("[caf\xE9]\r\nk=\xFC\r\n");
        CHECK(ValueOf(file, u"CAFÉ", u"k") == "ü");
        file.SetValue(u"café", u"new", u"Ж");
        CHECK(file.ToBytes() == "[caf\xE9]\r\nk=\xFC\r\nnew=Ж\r\n");
        file.SetValue(u"café", u"k", u"Ж");
        CHECK(file.ToBytes() == "[caf\xE9]\r\nk=Ж\r\nnew=Ж\r\n");
        CHECK(file.SectionNames() == std::vector<std::u16string>{u"café"});
    }
    SUBCASE("one such line changes nothing of the others") {
        const std::string before = "[s]\r\n; by h\xE4nd\r\nПеро=Чехов\r\n";
        ProfileFile file = Parse(before + "th\xE9=\xE9t\xE9\r\n");
        CHECK(ValueOf(file, u"s", u"ПЕРО") == "Чехов");
        CHECK(ValueOf(file, u"s", u"Thé") == "été");
        CHECK(Listed(file, u"s") == "Перо=Чехов|thé=été|");
        file.SetValue(u"s", u"x", u"1");
        CHECK(file.ToBytes() == before + "th\xE9=\xE9t\xE9\r\nx=1\r\n");
        file.SetValue(u"s", u"thé", u"чай");
        CHECK(file.ToBytes() == before + "thé=чай\r\nx=1\r\n");
        CHECK(ValueOf(Parse(file.ToBytes()), u"s", u"thé") == "чай");
    }
    SUBCASE("a section is rewritten around such lines") {
        ProfileFile file = Parse("[s]\r\n th\xE9 = 1 \r\nb=\xFC\r\nЖ=2\r\n; \xE4\r\n");
        file.SetSection(u"s", {u"Ж=2", u"thé=1", u"b=ö", u"c=3"});
        CHECK(file.ToBytes() == "[s]\r\n; \xE4\r\nЖ=2\r\nth\xE9 = 1\r\nb=ö\r\nc=3\r\n");
    }
    SUBCASE("a damaged or cut letter spoils no other letter of its line") {
        CHECK(ValueOf(Parse("[s]\r\nk=Пе\xD1о и ро\xD0"), u"s", u"k") == "Пе\uFFFDо и ро\uFFFD");
        CHECK(ValueOf(Parse("[s]\r\nk=Пе\x80ро\r\nl=\xE9\r\n"), u"s", u"l") == "é");
        // As many letters of a code page as of UTF-8: it is the code page's.
        CHECK(ValueOf(Parse("[s]\r\nk=\xC3\xA9 \xE9"), u"s", u"k") == "Ã© é");
    }
    SUBCASE("UTF-16 with a mark") {
        const std::string little = "\xFF\xFE[\0s\0]\0\n\0k\0=\0\x16\x04"s; // Zhe
        const std::string big = "\xFE\xFF\0[\0s\0]\0\n\0k\0=\x04\x16"s;
        for (const std::string& bytes : {little, big, little + "x", big + "x"}) {
            CHECK(ValueOf(Parse(bytes), u"s", u"k") == "Ж");
            CHECK(Parse(bytes).ToBytes() == "[s]\nk=Ж");
        }
        CHECK(Parse("\xFF\xFE\x00\xD8"s).ToBytes() == "\uFFFD");
    }
    SUBCASE("UTF-16 without a mark") {
        const std::string little = "[\0s\0]\0\n\0k\0=\0\x16\x04"s;
        const std::string big = "\0[\0s\0]\0\n\0k\0=\x04\x16"s;
        for (const std::string& bytes : {little, big}) {
            CHECK(ValueOf(Parse(bytes), u"s", u"k") == "Ж");
            CHECK(Parse(bytes).ToBytes() == "[s]\nk=Ж");
        }
        CHECK(Parse("a\0"s).ToBytes() == "a\0"s); // too little to tell
        CHECK(Parse("a\0b\0\0\0"s).ToBytes() == "a\0b\0\0\0"s);
    }
    SUBCASE("a NUL is a character like others") {
        const std::string bytes = "\0\0[s]\0\nk=a\0b\0\n\0\0\0\n[t]\nx=1\0\0"s;
        ProfileFile file = Parse(bytes);
        CHECK(ValueOf(file, u"s", u"k") == "a\0b"s);
        CHECK(ValueOf(file, u"t", u"x") == "1");
        file.SetValue(u"t", u"y", u"2");
        CHECK(file.ToBytes() == bytes + "\r\ny=2\r\n");
    }
    SUBCASE("no length is too long") {
        const std::string key(1 << 20, 'k'), value(1 << 20, 'v');
        ProfileFile file = Parse("[s]\n" + key + "=" + value + "\n[" + key + "]\na=1\n");
        CHECK(ValueOf(file, u"s", Utf8ToUtf16(key)) == value);
        CHECK(ValueOf(file, Utf8ToUtf16(key), u"a") == "1");
    }
    SUBCASE("every byte by itself and between lines") {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string one(1, static_cast<char>(byte));
            CAPTURE(byte);
            CHECK(Parse(one).SectionNames().size() == (byte == '[' ? 1u : 0u));
            ProfileFile file = Parse("[s]\nk=1\n" + one + "\n[t]\nx=2\n");
            file.SetValue(u"s", u"k", u"3");
            CHECK(ValueOf(file, u"s", u"k") == "3");
            CHECK(ValueOf(file, u"t", u"x") == "2");
        }
    }
}

namespace {
std::string BookKey(int number) {
    return "/home/reader/books/Книги/a folder with a rather long name/book number " +
           std::to_string(number) + ".txt";
}

// Of reading a data file of so many books and changing the last record.
AllocationCounts CostOfChange(int books) {
    std::string bytes = "[Scheme]\r\n<Path>=x\r\n[Default\\mFileList]\r\n";
    for (int i = 0; i < books; ++i) {
        bytes += BookKey(i) + "=2026:01:02:03:04:05=0=DejaVu Sans=12=204=0=0=0=0=1=0=0=16777215="
                              "1234567=345678=The Title of the Book=10,20|30,40\r\n";
    }
    bytes += "[Default]\r\nLeft=1\r\n";
    const std::u16string lastBook = Utf8ToUtf16(BookKey(books - 1));
    const AllocationCounter counter;
    ProfileFile file = Parse(bytes);
    file.SetValue(u"Default\\mFileList", lastBook, u"new");
    const std::string written = file.ToBytes();
    const AllocationCounts counts = counter.Counts();
    CHECK(written.size() < bytes.size());
    return counts;
}
} // namespace

TEST_CASE("profile file: a large file takes few copies to read and to change") {
    const AllocationCounts one = CostOfChange(5000), two = CostOfChange(10'000);
    CHECK(two.count <= one.count + 50); // none for each record
    CHECK(two.allBytes <= 5 * (two.allBytes - one.allBytes) / 2);
    // Line ends of the other kind are far away; looking for them from each line would take minutes.
    const std::string ends(1 << 20, '\r');
    CHECK(Listed(Parse("[s]\n" + ends + "k=1\n" + std::string(1 << 20, '\n')), u"s") == "k=1|");
}
