// The profile-file engine against the system's own functions, on generated files and operations:
// each must read what the other wrote, and both must give the same answers.
#include "common/profile_file.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/files/win_files.h"
#include "temporary_folder_windows.h"

#include <doctest/doctest.h>

#include <optional>
#include <random>

namespace {

constexpr unsigned fileCount = 2'000, operationsPerFile = 4, questionCount = 2;
constexpr std::size_t bufferSize = 32'767; // units: more than any section here has

using Lines = std::vector<std::u16string>;

std::u16string DecodeAnsi(int, std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                            static_cast<int>(text.size()))));
    return FromWide(text);
}

std::string EncodeAnsi(const std::u16string& text) {
    const std::wstring wide = ToWide(text);
    std::string bytes(wide.size() * 4, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// The system's functions on one file.
class SystemProfile {
  public:
    explicit SystemProfile(std::wstring path) : path_(std::move(path)) {}

    std::optional<std::u16string> Value(const std::wstring& section, const std::wstring& key) {
        static constexpr wchar_t none[] = L"\x7Fnone";
        std::wstring buffer(bufferSize, L'\0');
        buffer.resize(GetPrivateProfileStringW(section.c_str(), key.c_str(), none, buffer.data(),
                                               bufferSize, path_.c_str()));
        if (buffer == none) return std::nullopt;
        return FromWide(buffer);
    }
    Lines SectionLines(const std::wstring& section) {
        std::wstring buffer(bufferSize, L'\0');
        buffer.resize(
            GetPrivateProfileSectionW(section.c_str(), buffer.data(), bufferSize, path_.c_str()));
        Lines lines;
        for (std::size_t at = 0; at < buffer.size() && buffer[at] != L'\0';) {
            const std::wstring line = buffer.c_str() + at;
            lines.push_back(FromWide(line));
            at += line.size() + 1;
        }
        return lines;
    }
    void Set(const std::wstring& section, const wchar_t* key, const wchar_t* value) {
        WritePrivateProfileStringW(section.c_str(), key, value, path_.c_str());
        WritePrivateProfileStringW(nullptr, nullptr, nullptr, path_.c_str()); // not only in memory
    }
    void SetSection(const std::wstring& section, const std::vector<std::wstring>& lines) {
        std::wstring block;
        for (const std::wstring& line : lines)
            block += line + L'\0';
        block += L'\0';
        WritePrivateProfileSectionW(section.c_str(), block.c_str(), path_.c_str());
        WritePrivateProfileStringW(nullptr, nullptr, nullptr, path_.c_str());
    }

  private:
    const std::wstring path_;
};

const std::vector<std::string> SectionChoices = {"a", "A", "two words", "Profile\\mFileList",
                                                 "[", "0"};

// Texts of one seed. All of it is the same on every system.
class Generator {
  public:
    explicit Generator(unsigned seed) : random_(seed) {}

    bool OneIn(unsigned count) { return random_() % count == 0; }
    std::string From(const std::vector<std::string>& choices) {
        return choices[random_() % choices.size()];
    }
    std::string Section() { return From(SectionChoices); }
    std::string Key() {
        return From({"k", "K", "key two", "C:\\Books\\War and Peace.txt", "0", "#x"});
    }

    std::string Blanks() { return From({"", "", "", " ", "\t", "  \t "}); }
    std::string Value() {
        static const std::vector<std::string> values = {
            "",     "1",    "a=b=c", "\"quoted\"", "'quoted'", "\" a \"", "\"",
            "\"\"", "'a\"", "x;y",   ";c",         "[a]",      "a  b",    "\"a\" b",
            "'",    "a\tb", "1=2==", "&#61;|",     "%s\\n\\",  "\"'a'\""};
        if (OneIn(20)) return std::string(random_() % 1'500, 'v');
        return Blanks() + From(values) + Blanks();
    }
    std::string Line() {
        switch (random_() % 10) {
        case 0:
            return Blanks() + "[" + Blanks() + Section() + Blanks() + "]" + From({"", " ", "x"});
        case 1: return Blanks() + ";" + Key() + "=" + Value();
        case 2: return Blanks();
        // Not of the names that are asked for: Wine takes "k" for a key without a value, and then
        // does not see a "k=1" after it. Nobody documents that.
        case 3: return "no key";
        default: return Blanks() + Key() + Blanks() + "=" + Value();
        }
    }
    std::string File() {
        std::string bytes;
        const std::string end = From({"\r\n", "\r\n", "\n"});
        for (unsigned count = random_() % 16; count > 0; --count)
            bytes += Line() + end;
        if (OneIn(3) && !bytes.empty()) bytes.resize(bytes.size() - end.size());
        return bytes;
    }

  private:
    std::mt19937 random_;
};

std::wstring Wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

std::u16string Unicode(const std::string& ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

// Without the flush to the disk that a real data file gets: there are thousands of these.
void Write(const std::wstring& path, const std::string& bytes) {
    const WinHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    REQUIRE(
        WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
}

ProfileFile EngineOn(const std::wstring& path) {
    std::string bytes;
    WinFiles().Read(FromWide(path), 1u << 20, bytes);
    return ProfileFile::Parse(bytes, 0, DecodeAnsi);
}

std::string Narrow(const std::u16string& text) {
    return std::string(text.begin(), text.end());
}

// All that both can be asked.
void Compare(const std::wstring& path, Generator& names) {
    const ProfileFile engine = EngineOn(path);
    SystemProfile system(path);
    INFO(engine.ToBytes());
    for (unsigned i = 0; i < questionCount; ++i) {
        const std::string section = names.Section(), key = names.Key();
        CAPTURE(section);
        CAPTURE(key);
        const auto ours = engine.Value(Unicode(section), Unicode(key));
        const auto theirs = system.Value(Wide(section), Wide(key));
        CHECK(Narrow(ours.value_or(u"(none)")) == Narrow(theirs.value_or(u"(none)")));
        const Lines ourLines = engine.SectionLines(Unicode(section));
        const Lines theirLines = system.SectionLines(Wide(section));
        CHECK(ourLines.size() == theirLines.size());
        for (std::size_t line = 0; line < std::min(ourLines.size(), theirLines.size()); ++line)
            CHECK(Narrow(ourLines[line]) == Narrow(theirLines[line]));
    }
}

void CompareEngines(const ProfileFile& a, const ProfileFile& b) {
    INFO(a.ToBytes());
    INFO(b.ToBytes());
    for (const std::string& section : SectionChoices)
        CHECK((a.SectionLines(Unicode(section)) == b.SectionLines(Unicode(section))));
}

// The same change by both, in a file of each.
void Change(ProfileFile& engine, SystemProfile& system, Generator& choose) {
    const std::string section = choose.Section(), key = choose.Key();
    if (choose.OneIn(3)) {
        std::vector<std::string> lines;
        while (!choose.OneIn(4))
            lines.push_back(choose.Key() + "=" + choose.Value());
        Lines ours;
        std::vector<std::wstring> theirs;
        for (const std::string& line : lines) {
            ours.push_back(Unicode(line));
            theirs.push_back(Wide(line));
        }
        engine.SetSection(Unicode(section), ours);
        system.SetSection(Wide(section), theirs);
    } else {
        const std::string value = choose.Value();
        engine.SetValue(Unicode(section), Unicode(key), Unicode(value));
        system.Set(Wide(section), Wide(key).c_str(), Wide(value).c_str());
    }
}

} // namespace

TEST_CASE("windows profile file: engine and system read the same") {
    const TemporaryFolder folder;
    for (unsigned seed = 0; seed < fileCount; ++seed) {
        CAPTURE(seed);
        Generator generate(seed);
        // A name of its own each time: the system may keep what it knows of a file by its name.
        const std::wstring path = folder.path + L"\\" + std::to_wstring(seed) + L".ini";
        Write(path, generate.File());
        Compare(path, generate);
        DeleteFileW(path.c_str());
    }
}

TEST_CASE("windows profile file: a file in the system's code page") {
    const TemporaryFolder folder;
    const std::wstring theirs = folder.path + L"\\theirs.ini", ours = folder.path + L"\\ours.ini";
    // UTF-8 where a manifest or the user's settings say so.
    const std::u16string unicode = u"caf\u00E9 \u00C0 la carte \u00FC";
    const std::string letters = EncodeAnsi(unicode);
    REQUIRE(DecodeAnsi(0, letters) == unicode);
    Write(theirs, "[" + letters + "]\r\n" + letters + "=" + letters + "\r\n");
    CHECK((EngineOn(theirs).Value(unicode, unicode) == unicode));
    SystemProfile system(theirs);
    CHECK((system.Value(ToWide(unicode), ToWide(unicode)) == unicode));

    SystemProfile written(ours);
    written.Set(ToWide(unicode), ToWide(unicode).c_str(), ToWide(unicode).c_str());
    CHECK((EngineOn(ours).Value(unicode, unicode) == unicode));
    CHECK((EngineOn(ours).SectionLines(unicode) == Lines{unicode + u"=" + unicode}));
}

TEST_CASE("windows profile file: each reads what the other wrote") {
    const TemporaryFolder folder;
    for (unsigned seed = 0; seed < fileCount; ++seed) {
        CAPTURE(seed);
        Generator generate(seed);
        const std::string before = generate.File();
        INFO(before);
        const std::wstring start = folder.path + L"\\" + std::to_wstring(seed);
        const std::wstring ours = start + L".ini", theirs = start + L".system.ini";
        Write(theirs, before);
        ProfileFile engine = ProfileFile::Parse(before, 0, DecodeAnsi);
        SystemProfile system(theirs);
        for (unsigned i = 0; i < operationsPerFile; ++i) {
            Change(engine, system, generate);
            CompareEngines(engine, EngineOn(theirs));
        }
        Write(ours, engine.ToBytes());
        Generator names = generate; // the same questions about both
        Compare(ours, names);
        Compare(theirs, generate);
        DeleteFileW(ours.c_str());
        DeleteFileW(theirs.c_str());
    }
}
