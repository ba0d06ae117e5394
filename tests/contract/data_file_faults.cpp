#include "data_file_faults.h"

#include "app/open_book.h"
#include "common/utf.h"
#include "tests/unit/test_form.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

const std::string list =
    "/none/Книга.txt=2021:07:04:18:05:30=0=Serif=12=204=0=0=0=0=1=0=0=9=70=20="
    "&#1057;&#1086;&#1085;=5,6|70,81\r\n"
    "/none/été.htm=2021:07:04:18:05:30=2==3========9=800=30=Thé à la menthe=\r\n";
const std::string stored = "; Анна читает\r\n[mProfileList]\r\n0=Anna\r\n1=Берт\r\n[Anna]\r\n"
                           "Left=11\r\nTop=12\r\nWidth=613\r\nHeight=414\r\nState=0\r\n"
                           "[Anna\\mFileList]\r\n" +
                           list + "[Берт\\mFileList]\r\n/none/Берт.txt==0\r\n";

std::u16string AsLatin(int, std::string_view bytes) {
    std::u16string text;
    for (const char byte : bytes)
        text += static_cast<unsigned char>(byte);
    return text;
}

void Write(const fs::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadAll(const fs::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

bool Holds(const ListLines& lines, const std::u16string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// All that was remembered is still there; what the program adds of its own may be, too.
void CheckKept(const fs::path& dataFile) {
    const std::string bytes = ReadAll(dataFile);
    const ProfileFile file = ProfileFile::Parse(bytes, 1252, AsLatin);
    const ListLines anna = file.SectionLines(u"Anna\\mFileList");
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);)
        CHECK(Holds(anna, Utf8ToUtf16(line.substr(0, line.size() - 1))));
    CHECK(Holds(file.SectionLines(u"Берт\\mFileList"), u"/none/Берт.txt==0"));
    const ListLines profiles = file.SectionLines(u"mProfileList");
    CHECK(Holds(profiles, u"0=Anna"));
    CHECK(Holds(profiles, u"1=Берт"));
    CHECK(file.Value(u"Anna", u"Width") == u"613");
}

Ports PortsOfSystem() {
    Ports ports = MakeNonePorts();
    ports.files = FilesOfSystem();
    return ports;
}

// A program on the files of the system, in a folder of its own with two books.
class Program {
  public:
    explicit Program(const fs::path& folder) : folder_(folder), test_(PortsOfSystem()) {
        test_.form.ports.launch.programFolder = PathOfSystem(folder);
        test_.form.ports.launch.userDataFolder = PathOfSystem(folder / "own");
        test_.form.ports.launch.rootFolder = PathOfSystem(folder.root_path());
    }

    bool Start() { return test_.Start(); }
    // As a person does who reads for some minutes.
    void Read() {
        for (const char* book : {"first.txt", "second.txt", "first.txt"}) {
            OpenBook(test_.form, PathOfSystem(folder_ / book));
            test_.Timer().Tick(61);
        }
        test_.Menus().Click(test_.Menu().mOptionsTitle, 0);
    }
    void Tick() { test_.Timer().Tick(70); }
    void Close() { test_.Close(); }

    std::u16string Title() { return test_.Window().title; }
    Reported WhatWasReported() {
        Reported reported = Reported::Nothing;
        for (const Message& message : test_.Dialogs().messages) {
            CHECK(reported == Reported::Nothing); // in one message
            reported = message.text.find(u"read") != message.text.npos &&
                               message.text.find(u"cannot be written") == message.text.npos
                           ? Reported::CannotRead
                           : Reported::CannotWrite;
        }
        return reported;
    }
    bool HasBook(const char* name) {
        const auto order = test_.Order();
        return std::find(order.begin(), order.end(), PathOfSystem(folder_ / name)) != order.end();
    }

  private:
    fs::path folder_;
    TestForm test_;
};

struct Place {
    explicit Place(const fs::path& folder) : path(folder), dataFile(folder / "Norvaset.dat") {
        fs::create_directories(folder);
        Write(dataFile, stored);
        for (const char* book : {"first.txt", "second.txt"})
            Write(folder / book, NumberedLines(300));
    }
    fs::path path, dataFile;
};

void CheckNextStart(const Place& place) {
    CheckKept(place.dataFile);
    Program next(place.path);
    REQUIRE(next.Start());
    CHECK(next.WhatWasReported() == Reported::Nothing);
    CHECK(next.Title().starts_with(u"Norvaset [Anna]"));
    next.Close();
    CheckKept(place.dataFile);
}

void CheckThereAtStart(const Fault& fault, const fs::path& folder, bool endsWhileItRuns) {
    const Place place(folder);
    const EndOfFault end = fault.begin(place.dataFile);
    Program program(place.path);
    REQUIRE(program.Start());
    program.Read();
    CHECK(program.WhatWasReported() == fault.atStart);
    if (endsWhileItRuns) {
        end();
        program.Tick();
        CHECK(program.Title().starts_with(u"Norvaset [Anna]"));
        CHECK(program.HasBook("first.txt"));
        CHECK(program.HasBook("second.txt"));
        program.Close();
    } else {
        program.Close();
        end();
    }
    CheckNextStart(place);
}

} // namespace

void CheckFaultThatComes(const Fault& fault, const fs::path& folder, bool endsWhileItRuns) {
    const Place place(folder);
    Program program(place.path);
    REQUIRE(program.Start());
    const EndOfFault end = fault.begin(place.dataFile);
    program.Read();
    CHECK(program.WhatWasReported() == fault.later);
    CHECK(program.HasBook("second.txt"));
    if (endsWhileItRuns) {
        end();
        program.Tick();
        program.Close();
    } else {
        program.Close();
        end();
    }
    CheckNextStart(place);
}

namespace {
std::string Utf16(const std::string& utf8) {
    std::string bytes;
    for (const char16_t unit : Utf8ToUtf16(utf8)) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::string With(std::string text, std::string_view old, std::string_view changed) {
    const std::size_t at = text.find(old);
    REQUIRE(at != text.npos);
    return text.replace(at, old.size(), changed);
}

// The data file has these bytes: at the start, or put there by another program while one runs.
void CheckBytes(const fs::path& folder) {
    const struct {
        const char* name;
        std::string bytes;
    } cases[] = {
        {"a damaged comment", With(stored, "Анна", "Анн\xD0")},
        {"a comment in a code page", With(stored, "Анна", "\xC0\xED\xED\xE0")},
        {"a line in a code page",
         With(With(stored, "Thé à la", "Th\xE9 \xE0 la"), "été", "\xE9t\xE9")},
        {"cut in the middle of a letter", stored + "[Берт]\r\nLeft=\xD0"},
        {"UTF-16 without a mark", Utf16(stored)},
        {"UTF-16 with a mark", "\xFF\xFE" + Utf16(stored)},
        {"a line of a megabyte", std::string(1 << 20, 'x') + "\r\n" + stored},
        {"other line ends",
         [] {
             std::string bytes = stored;
             std::erase(bytes, '\r');
             return bytes;
         }()},
    };
    int number = 0;
    for (const auto& c : cases) {
        CAPTURE(std::string(c.name));
        for (const bool atStart : {true, false}) {
            const Place place(folder / ("bytes " + std::to_string(++number)));
            Program program(place.path);
            if (atStart) Write(place.dataFile, c.bytes);
            REQUIRE(program.Start());
            if (!atStart) Write(place.dataFile, c.bytes);
            program.Read();
            program.Close();
            CHECK(program.WhatWasReported() == Reported::Nothing);
            CheckNextStart(place);
        }
    }
}

// Emptied, cut off or taken away while a program runs that has read it.
void CheckLosses(const fs::path& folder) {
    int number = 0;
    for (const char* left : {"", "\r\n", static_cast<const char*>(nullptr)}) {
        const Place place(folder / ("lost " + std::to_string(++number)));
        Program program(place.path);
        REQUIRE(program.Start());
        if (left)
            Write(place.dataFile, left);
        else
            fs::remove(place.dataFile);
        program.Read();
        program.Close();
        CHECK(program.WhatWasReported() == Reported::Nothing);
        CheckNextStart(place);
    }
}

} // namespace

void CheckDataFileFaults(const fs::path& emptyFolder) {
    SUBCASE("faults of the system") {
        int number = 0;
        for (const Fault& fault : FaultsOfSystem()) {
            CAPTURE(std::string(fault.name));
            for (const bool endsWhileItRuns : {true, false}) {
                CAPTURE(endsWhileItRuns);
                const fs::path folder = emptyFolder / std::to_string(++number);
                CheckThereAtStart(fault, folder / "start", endsWhileItRuns);
                CheckFaultThatComes(fault, folder / "later", endsWhileItRuns);
            }
        }
        CHECK(number > 0);
    }
    SUBCASE("bytes of many kinds") {
        CheckBytes(emptyFolder);
    }
    SUBCASE("a file that loses what was read of it") {
        CheckLosses(emptyFolder);
    }
}
