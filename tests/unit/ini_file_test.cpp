#include "common/utf.h"
#include "datafile/file_dates.h"
#include "datafile/ini_file.h"
#include "datafile/list_persistence.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"

#include <doctest/doctest.h>

#include <limits>

namespace {

constexpr auto KeepTime = IniFile::WriteMode::KeepTime;

std::u16string FromLatin1(int, std::string_view bytes) {
    std::u16string text;
    for (const char byte : bytes)
        text += static_cast<unsigned char>(byte);
    return text;
}

// A folder with one data file in it, or none.
struct Store {
    NoneClock clock;
    NoneFiles files{clock};
    std::u16string path = u"/home/reader/Norvaset.dat";
    IniFile ini{files, path, 1252, FromLatin1};

    Store() { files.AddFolder(u"/home/reader"); }
    explicit Store(std::string_view bytes) { files.AddFile(path, bytes); }

    std::string Bytes() const { return files.Bytes(path); }
    std::size_t Writes() const { return files.replaceCalls.size(); }
    void Edit(std::string_view bytes) { files.EditInPlace(path, bytes); }
    std::string Read(std::u16string_view key, std::u16string_view fallback = u"") {
        return Utf16ToUtf8(IniReadString(ini, u"s", key, fallback));
    }
};

} // namespace

TEST_CASE("ini file: reading strings") {
    Store store("[s]\r\na= plain  text \r\nblank= \r\nquoted=\"  two  \"\r\nonly=\"   "
                "\"\r\ntab=\"\t\"\r\n");
    CHECK(store.Read(u"a") == "plain  text");
    CHECK(store.Read(u"A", u"x") == "plain  text");
    CHECK(store.Read(u"none") == "");
    CHECK(store.Read(u"none", u" x ") == "x");
    CHECK(store.Read(u"blank", u"x") == "");
    CHECK(store.Read(u"quoted") == "two  "); // only blanks before a value are taken off here
    CHECK(store.Read(u"only") == "");
    CHECK(store.Read(u"tab") == "\t");
    CHECK(IniReadString(store.ini, u"none", u"a", u"x") == u"x");
    CHECK(IniReadString(store.ini, u"", u"", u"x") == u"x");
}

TEST_CASE("ini file: a long value is cut at the old buffers' lengths") {
    const std::string digits(40000, '1');
    Store store("[s]\r\nlong=" + digits + "\r\npair=" + digits.substr(0, 32765) + "𝄞\r\nnumber=0." +
                std::string(252, '0') + "9\r\n");
    CHECK(store.Read(u"long").size() == 32766);
    CHECK(store.Read(u"pair").size() == 32765); // no half of a pair is left
    CHECK(IniReadString(store.ini, u"s", u"none", std::u16string(40000, u'x')).size() == 32766);
    int read = 0;
    CHECK(IniReadNumber(store.ini, u"s", u"number", 0, &read) == 0);
    CHECK(read == 254);
    IniReadNumber(store.ini, u"s", u"long", 0, &read);
    CHECK(read == 254);
}

TEST_CASE("ini file: reading numbers") {
    Store store("[s]\r\na=12\r\nb= -2.05 points\r\nc=text\r\nd=\r\ne=1.00004\r\nf=\" 7 \"\r\n");
    const struct {
        const char16_t* key;
        double fallback, value;
        int read;
    } cases[] = {
        {u"a", 5, 12, 2},
        {u"b", 0, -2.05, 12},
        {u"c", 5, 0, 4},
        {u"d", 5, 0, 0},
        {u"e", 0, 1, 7},
        {u"f", 0, 7, 3},
        {u"none", 5, 5, 1},
        {u"none", 0, 0, 1},
        {u"none", -1.25, -1.25, 5},
        {u"none", 0.0001, 0.0001, 6},
        {u"", 5, 0, 0},
    };
    for (const auto& c : cases) {
        CAPTURE(Utf16ToUtf8(c.key));
        int read = -1;
        CHECK(IniReadNumber(store.ini, u"s", c.key, c.fallback, &read) == c.value);
        CHECK(read == c.read);
    }
    CHECK(IniReadNumber(store.ini, u"", u"a", 5) == 0);
    IniFile nowhere(store.files, u"", 1252, FromLatin1);
    CHECK(IniReadNumber(nowhere, u"s", u"a", 5) == 0);
    CHECK(IniReadString(nowhere, u"s", u"a", u"x") == u"x");
}

TEST_CASE("ini file: writing strings") {
    Store store;
    CHECK(store.Read(u"a", u"x") == "x");
    IniWriteString(store.ini, u"s", u"a", u"1");
    CHECK(store.Bytes() == "[s]\r\na=1\r\n");
    IniWriteString(store.ini, u"S", u"A", u"1");
    CHECK(store.Writes() == 1);
    IniWriteString(store.ini, u"s", u"a", u"b");
    IniWriteString(store.ini, u"s", u"a", u"B");
    CHECK(store.Bytes() == "[s]\r\na=B\r\n");
    CHECK(store.Writes() == 3);

    IniFile nowhere(store.files, u"", 1252, FromLatin1);
    IniWriteString(nowhere, u"s", u"a", u"2");
    CHECK(store.Writes() == 3);
}

TEST_CASE("ini file: an empty value is stored as one blank") {
    Store store;
    IniWriteString(store.ini, u"s", u"a", u"");
    CHECK(store.Bytes() == "[s]\r\na= \r\n");
    CHECK(store.Read(u"a", u"x") == "");
    IniWriteString(store.ini, u"s", u"a", u"");
    CHECK(store.Writes() == 2); // always written
}

TEST_CASE("ini file: writing numbers") {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {1, "1"},
        {-1, "-1"},
        {2.05, "2.05"},
        {-0.5, "-0.5"},
        {0.0001, "0.0001"},
        {0.00001, "0"},
        {100.10, "100.1"},
        {16777215, "16777215"},
        {0, "0"},
        {1e300, "922337203685477.5807"},
        {-1e300, "-922337203685477.5808"},
        {std::numeric_limits<double>::quiet_NaN(), "0"},
    };
    for (const auto& c : cases) {
        Store store;
        IniWriteNumber(store.ini, u"s", u"a", c.value);
        CHECK(store.Bytes() == std::string("[s]\r\na=") + c.text + "\r\n");
    }
    Store store("[s]\r\na=007.50\r\nb=0\r\n");
    IniWriteNumber(store.ini, u"s", u"a", 7.5);
    CHECK(store.Writes() == 0); // the same number, differently written
    IniWriteNumber(store.ini, u"s", u"b", 0);
    CHECK(store.Writes() == 1); // 0 is always written
}

TEST_CASE("ini file: the last-write time") {
    Store store("[s]\r\na=1\r\n");
    const auto stamp = [&] { return store.files.Find(store.path)->lastWrite; };
    const DateTime before = stamp();
    store.clock.Advance(std::chrono::hours(1));

    IniWriteString(store.ini, u"s", u"a", u"1");
    CHECK(stamp() == before);
    IniWriteString(store.ini, u"s", u"a", u"2", WriteTime::Keep);
    CHECK(store.Bytes() == "[s]\r\na=2\r\n");
    CHECK(stamp() == before);
    IniWriteString(store.ini, u"s", u"e", u"", WriteTime::Keep);
    IniWriteNumber(store.ini, u"s", u"n", 3, WriteTime::Keep);
    CHECK(stamp() == before);
    IniWriteString(store.ini, u"s", u"a", u"3");
    CHECK(stamp() == store.clock.Now());

    store.clock.Advance(std::chrono::hours(1));
    IniWriteString(store.ini, u"s", u"e", u""); // no byte changes, still a write
    CHECK(stamp() == store.clock.Now());
}

TEST_CASE("ini file: a read-only file is updated and stays read-only") {
    Store store("[s]\r\na=1\r\n");
    store.files.Find(store.path)->readOnly = true;
    IniWriteString(store.ini, u"s", u"a", u"2");
    CHECK(store.Bytes() == "[s]\r\na=2\r\n");
    CHECK(store.files.Find(store.path)->readOnly);
}

TEST_CASE("ini file: read once, and again when someone else changed it") {
    Store store("[s]\r\na=1\r\n");
    CHECK(store.Read(u"a") == "1");
    CHECK(store.Read(u"b") == "");
    IniWriteString(store.ini, u"s", u"a", u"2");
    CHECK(store.Read(u"a") == "2");
    CHECK(store.files.readCalls.size() == 1);

    store.Edit("[s]\r\na=9\r\n; by hand\r\n");
    CHECK(store.Read(u"a") == "9");
    CHECK(store.files.readCalls.size() == 2);
    IniWriteString(store.ini, u"s", u"b", u"1");
    CHECK(store.Bytes() == "[s]\r\na=9\r\n; by hand\r\nb=1\r\n");
}

TEST_CASE("ini file: what was read comes back when the file has gone or been emptied") {
    for (const char* left : {static_cast<const char*>(nullptr), "", "\r\n \r\n"}) {
        Store store("[s]\r\na=1\r\n; by hand\r\n[other]\r\nb=2\r\n");
        CHECK(store.Read(u"a") == "1");
        if (left)
            store.Edit(left);
        else
            store.files.Remove(store.path);
        CHECK(store.Read(u"a") == "1");
        IniWriteString(store.ini, u"s", u"a", u"3");
        CHECK(store.Bytes() == "[s]\r\na=3\r\n; by hand\r\n[other]\r\nb=2\r\n");
    }
}

TEST_CASE("ini file: what could not be written is written with the next change") {
    Store store("[s]\r\na=1\r\n");
    store.files.failReplace = true;
    IniWriteString(store.ini, u"s", u"a", u"2");
    CHECK(store.ini.Trouble() == IniTrouble::NotWritten);
    CHECK(store.Read(u"a") == "2");
    {
        IniBatch batch(store.ini);
        IniWriteString(store.ini, u"s", u"a", u"3");
        CHECK_FALSE(batch.Commit());
    }
    CHECK(store.Bytes() == "[s]\r\na=1\r\n");
    SUBCASE("another change") {
        store.files.failReplace = false;
        IniWriteString(store.ini, u"s", u"b", u"4");
        CHECK(store.Bytes() == "[s]\r\na=3\r\nb=4\r\n");
    }
    SUBCASE("asked to") {
        CHECK_FALSE(store.ini.Flush());
        store.files.failReplace = false;
        CHECK(store.ini.Flush());
        CHECK(store.Bytes() == "[s]\r\na=3\r\n");
        const auto writes = store.Writes();
        CHECK(store.ini.Flush());
        CHECK(store.Writes() == writes);
    }
    SUBCASE("into what another program has made of the file meanwhile") {
        store.Edit("[s]\r\na=1\r\nc=9\r\n[new]\r\nx=y\r\n");
        CHECK(store.Read(u"a") == "3");
        CHECK(store.Read(u"c") == "9");
        store.files.failReplace = false;
        CHECK(store.ini.Flush());
        CHECK(store.Bytes() == "[s]\r\na=3\r\nc=9\r\n[new]\r\nx=y\r\n");
    }
    CHECK(store.ini.Trouble() == IniTrouble::None);
}

TEST_CASE("ini file: a batch that was not committed is written with the next change") {
    Store store("[s]\r\na=1\r\n");
    try {
        IniBatch batch(store.ini);
        IniWriteString(store.ini, u"s", u"a", u"2");
        throw 1;
    } catch (int) {
    }
    CHECK(store.Writes() == 0);
    CHECK(store.Read(u"a") == "2");
    IniWriteString(store.ini, u"s", u"b", u"3");
    CHECK(store.Bytes() == "[s]\r\na=2\r\nb=3\r\n");
}

TEST_CASE("ini file: a file that cannot be read is not written over") {
    for (const ReadStatus status :
         {ReadStatus::Denied, ReadStatus::Failed, ReadStatus::TooLarge, ReadStatus::NotAFile}) {
        Store store("[s]\r\na=1\r\n");
        store.files.readFailure[store.path] = status;
        CHECK(store.Read(u"a", u"x") == "x");
        IniWriteString(store.ini, u"s", u"b", u"2");
        CHECK(store.ini.TryRead() == status);
        store.files.readFailure.clear();
        // It could be read now, but whoever writes does not know what is in it.
        IniWriteString(store.ini, u"s", u"b", u"2");
        store.ini.SetSection(KeepTime, u"s", {u"c=3"});
        CHECK(store.Writes() == 0);
        CHECK(store.Read(u"a", u"x") == "x");
        CHECK(store.ini.IsUnread());
        CHECK(store.ini.Trouble() == IniTrouble::Unread);

        CHECK(store.ini.TryRead() == ReadStatus::Ok);
        CHECK_FALSE(store.ini.IsUnread());
        CHECK(store.Read(u"a", u"x") == "1");
        IniWriteString(store.ini, u"s", u"b", u"2");
        CHECK(store.Bytes() == "[s]\r\na=1\r\nb=2\r\n");
    }
}

TEST_CASE("ini file: in a folder out of reach a file is unread, and not missing") {
    NoneClock clock;
    NoneFiles files{clock};
    IniFile ini(files, u"/share/Norvaset.dat", 1252, FromLatin1);
    CHECK(ini.IsUnread());
    files.AddFile(u"/share/Norvaset.dat", "[s]\r\na=1\r\n");
    IniWriteString(ini, u"s", u"b", u"2");
    CHECK(files.replaceCalls.empty());
    CHECK(ini.TryRead() == ReadStatus::Ok);
    CHECK(IniReadString(ini, u"s", u"a") == u"1");

    files.AddFolder(u"/empty");
    IniFile fresh(files, u"/empty/Norvaset.dat", 1252, FromLatin1);
    CHECK_FALSE(fresh.IsUnread());
    IniFile atRoot(files, u"/Norvaset.dat", 1252, FromLatin1);
    CHECK(atRoot.TryRead() == ReadStatus::Failed); // there is no root either
    files.AddFolder(u"/");
    CHECK(atRoot.TryRead() == ReadStatus::NotFound);
}

TEST_CASE("ini file: a file that can no longer be read stays as it was read") {
    Store store("[s]\r\na=1\r\n");
    CHECK(store.Read(u"a") == "1");
    store.files.AddFile(store.path, "[s]\r\na=5\r\nb=6\r\n");
    store.files.readFailure[store.path] = ReadStatus::Denied;
    CHECK(store.Read(u"a") == "1");
    IniWriteString(store.ini, u"s", u"c", u"3");
    CHECK(store.Writes() == 0);
    CHECK(store.ini.Trouble() == IniTrouble::NotRead);
    store.files.readFailure.clear();
    CHECK(store.ini.Flush());
    CHECK(store.Bytes() == "[s]\r\na=5\r\nb=6\r\nc=3\r\n");
    CHECK(store.ini.Trouble() == IniTrouble::None);
}

TEST_CASE("ini file: a list is merged with what another program has made of it, also later on") {
    Store store("[s]\r\na=1\r\nb=2\r\n");
    const ListLines base = LoadSectionLines(store.ini, u"s");
    store.Edit("[s]\r\na=1\r\nb=2\r\nc=3\r\n");
    SUBCASE("at once") {
        store.ini.MergeSection(u"s", base, {u"b=4", u"a=1"});
    }
    SUBCASE("when it can be written") {
        store.files.failReplace = true;
        store.ini.MergeSection(u"s", base, {u"b=4", u"a=1"});
        store.files.failReplace = false;
        CHECK(store.ini.Flush());
    }
    CHECK(store.Bytes() == "[s]\r\nb=4\r\nc=3\r\na=1\r\n");
}

TEST_CASE("ini file: a line in another encoding stays as it is until its value changes") {
    Store store("[s]\r\na=caf\xE9\r\n");
    CHECK(store.Read(u"a") == "café");
    IniWriteString(store.ini, u"s", u"a", u"café");
    CHECK(store.Writes() == 0);
    IniWriteString(store.ini, u"s", u"b", u"Ж");
    CHECK(store.Bytes() == "[s]\r\na=caf\xE9\r\nb=Ж\r\n");
    IniWriteString(store.ini, u"s", u"a", u"thé");
    CHECK(store.Bytes() == "[s]\r\na=thé\r\nb=Ж\r\n");
}

TEST_CASE("ini file: a batch is one write") {
    Store store("[s]\r\na=1\r\n");
    const DateTime before = store.files.Find(store.path)->lastWrite;
    store.clock.Advance(std::chrono::hours(1));
    {
        IniBatch batch(store.ini);
        IniWriteString(store.ini, u"s", u"a", u"2", WriteTime::Keep);
        {
            IniBatch inner(store.ini);
            IniWriteNumber(store.ini, u"s", u"b", 3, WriteTime::Keep);
            CHECK(IniReadNumber(store.ini, u"s", u"b") == 3);
            CHECK(inner.Commit());
        }
        CHECK(store.Writes() == 0);
        CHECK(batch.Commit());
    }
    CHECK(store.Writes() == 1);
    CHECK(store.Bytes() == "[s]\r\na=2\r\nb=3\r\n");
    CHECK(store.files.Find(store.path)->lastWrite == before);
    {
        IniBatch batch(store.ini);
        IniWriteString(store.ini, u"s", u"a", u"3", WriteTime::Keep);
        IniWriteString(store.ini, u"s", u"b", u"4");
        IniWriteString(store.ini, u"s", u"c", u"5", WriteTime::Keep);
        CHECK(batch.Commit());
    }
    CHECK(store.files.Find(store.path)->lastWrite == store.clock.Now());
    {
        IniBatch nothing(store.ini);
        IniBatch changedBack(store.ini);
        IniWriteString(store.ini, u"s", u"a", u"x");
        IniWriteString(store.ini, u"s", u"a", u"3");
        CHECK(changedBack.Commit());
        CHECK(nothing.Commit());
    }
    CHECK(store.Writes() == 2);
    store.ini.SetSection(KeepTime, u"s", {u"a=3"});
    CHECK(store.files.replaceCalls.back().time == WriteTime::Keep);
    CHECK(store.Bytes() == "[s]\r\na=3\r\n");
}

TEST_CASE("file dates: existence and stamps") {
    Store store("x");
    NoneFiles& files = store.files;
    CHECK(FileExists(files, store.path));
    CHECK_FALSE(FileExists(files, u""));
    CHECK_FALSE(FileExists(files, u"/home/reader"));
    CHECK_FALSE(FileExists(files, u"/home/reader/none"));
    CHECK_FALSE(FileExists(files, u"/home/reader/?"));

    const DateTime date{1999, 12, 31, 23, 59, 58};
    const DateTime now = store.clock.Now();
    CHECK(SetFileDate(files, store.path, date, FileTime::LastAccess));
    CHECK(GetFileDate(files, store.path, FileTime::LastAccess) == date);
    CHECK(GetFileDate(files, store.path, FileTime::LastWrite) == now);
    const auto version = files.Version(store.path);
    CHECK(SetFileDate(files, store.path, now, FileTime::LastWrite));
    CHECK(files.Version(store.path) == version); // equal: not set again
    CHECK_FALSE(GetFileDate(files, u"/none", FileTime::Creation));
    CHECK_FALSE(SetFileDate(files, u"/none", date, FileTime::LastWrite));
}
