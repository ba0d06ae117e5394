// The folders have one order: each includes what stands below it, and nothing else.
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace fs = std::filesystem;

namespace {
// From the bottom up. `platform` are the ports alone; their back ends stand beside the core.
constexpr std::array<std::string_view, 9> folders = {
    "common", "platform", "formats", "view", "datafile", "reading", "books", "shell", "app"};

int Height(std::string_view folder) {
    const auto place = std::ranges::find(folders, folder);
    return place == folders.end() ? -1 : static_cast<int>(place - folders.begin());
}

std::string_view FirstFolder(std::string_view path) {
    return path.substr(0, path.find('/'));
}

bool IsOfBackEnd(std::string_view path) {
    return path.starts_with("platform/") && path.find('/', 9) != path.npos;
}

// What may be above and below: the core by its order, without the formats for the ports; a back end
// the ports, `common`, `formats` and `view`, which is for back ends alone, and its main.cpp the
// form.
bool MayInclude(const std::string& file, const std::string& included) {
    if (Height(FirstFolder(included)) < 0) return true; // generated, or of the same folder
    if (FirstFolder(included) == "view") return FirstFolder(file) == "view" || IsOfBackEnd(file);
    if (!IsOfBackEnd(file))
        return !IsOfBackEnd(included) && Height(FirstFolder(included)) <= Height(FirstFolder(file));
    if (file.ends_with("/main.cpp")) return true;
    return Height(FirstFolder(included)) <= Height("view");
}

std::string IncludedBy(const std::string& line) {
    const std::string start = "#include \"";
    if (!line.starts_with(start)) return "";
    return line.substr(start.size(), line.rfind('"') - start.size());
}

using LineCheck = std::function<void(const std::string& file, const std::string& line)>;

void ForEachLine(std::string_view folder, const LineCheck& check) {
    const fs::path source = SourceFolder();
    for (const auto& entry : fs::recursive_directory_iterator(source / folder)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        std::ifstream file(entry.path());
        const auto name = fs::relative(entry.path(), source).generic_string();
        for (std::string line; std::getline(file, line);)
            check(name, line);
    }
}
} // namespace

TEST_CASE("includes: every folder includes what stands below it only") {
    int count = 0;
    for (const std::string_view folder : folders)
        ForEachLine(folder, [&](const std::string& file, const std::string& line) {
            const std::string included = IncludedBy(line);
            if (included.empty()) return;
            ++count;
            CHECK_MESSAGE(MayInclude(file, included), file << " includes " << included);
        });
    CHECK(count > 100);
}

namespace {
// Which folders, subfolders too, each of them includes from.
using FolderIncludes = std::map<std::string, std::set<std::string>>;

FolderIncludes ReadFolderIncludes() {
    FolderIncludes included;
    const auto folderOf = [](const std::string& path) {
        return fs::path(path).parent_path().generic_string();
    };
    for (const std::string_view folder : folders)
        ForEachLine(folder, [&](const std::string& file, const std::string& line) {
            const std::string from = folderOf(file), to = folderOf(IncludedBy(line));
            if (!to.empty() && to != from && !file.ends_with("/main.cpp"))
                included[from].insert(to);
        });
    return included;
}

// Folders that include one another, directly or not: what stays, with what is above it,
// when those that include none of the others are taken away one by one.
FolderIncludes Circles(FolderIncludes included) {
    const auto isBottom = [&](const FolderIncludes::value_type& each) {
        return std::ranges::none_of(each.second,
                                    [&](const auto& to) { return included.contains(to); });
    };
    for (auto bottom = std::ranges::find_if(included, isBottom); bottom != included.end();
         bottom = std::ranges::find_if(included, isBottom))
        included.erase(bottom);
    return included;
}
} // namespace

TEST_CASE("includes: no two folders include one another, nor do subfolders") {
    const FolderIncludes included = ReadFolderIncludes();
    CHECK(included.size() > 40);
    for (const auto& [folder, others] : Circles(included))
        for (const std::string& other : others)
            FAIL_CHECK(folder << " includes from " << other);
    CHECK(Circles({{"a", {"b", "c"}}, {"b", {"c"}}}).empty());
    CHECK(Circles({{"a", {"b"}}, {"b", {"c"}}, {"c", {"b", "d"}}}).contains("c"));
}

TEST_CASE("includes: the rule refuses what it is there to refuse") {
    CHECK_FALSE(MayInclude("common/text.h", "platform/files.h"));
    CHECK_FALSE(MayInclude("reading/find.cpp", "app/main_form.h"));
    CHECK_FALSE(MayInclude("books/history.h", "shell/layout.h"));
    CHECK_FALSE(MayInclude("app/events.cpp", "platform/qt/qt_ports.h"));
    CHECK_FALSE(MayInclude("platform/files.h", "formats/document.h"));
    CHECK_FALSE(MayInclude("books/history.cpp", "view/text_pane.h"));
    CHECK_FALSE(MayInclude("view/text_pane.cpp", "platform/qt/base/qt_color.h"));
    CHECK_FALSE(MayInclude("platform/qt/qt_ports.cpp", "books/history.h"));
    CHECK(MayInclude("platform/qt/main.cpp", "app/main_form.h"));
    CHECK(MayInclude("app/events.cpp", "platform/html_view.h"));
    CHECK(MayInclude("platform/qt/text_view/text_widget.h", "view/text_pane.h"));
}

TEST_CASE("includes: the form is known to app alone") {
    for (const std::string_view folder : folders) {
        if (folder == "app") continue;
        ForEachLine(folder, [](const std::string& file, const std::string& line) {
            const bool knows = line.find("MainForm") != line.npos;
            CHECK_MESSAGE((!knows || file.ends_with("/main.cpp")), file << ": " << line);
        });
    }
}

namespace {
// Whether the preprocessor asks on which system or by which compiler it is built.
bool AsksForSystem(const std::string& line) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == line.npos || line[start] != '#') return false;
    if (line.find("#include") != line.npos)
        return line.find("windows.h") != line.npos || line.find("unistd.h") != line.npos;
    constexpr std::string_view macros[] = {"WIN32",    "_WIN64",   "_MSC_VER",  "__MINGW",
                                           "__linux",  "__unix",   "__APPLE__", "Q_OS_",
                                           "__GNUC__", "__clang__"};
    return std::ranges::any_of(macros, [&](auto name) { return line.find(name) != line.npos; });
}
} // namespace

TEST_CASE("includes: systems are told apart under platform only") {
    for (const std::string_view folder : folders) {
        if (folder == "platform") continue;
        ForEachLine(folder, [](const std::string& file, const std::string& line) {
            CHECK_MESSAGE(!AsksForSystem(line), file << ": " << line);
        });
    }
    for (const char* line : {"#if defined(_WIN32)", "#ifdef __linux__", "  # ifdef _MSC_VER",
                             "#include <windows.h>", "#elif defined Q_OS_WIN"})
        CHECK(AsksForSystem(line));
    for (const char* line : {"// no _WIN32 here", "#include <vector>", "#pragma once", ""})
        CHECK_FALSE(AsksForSystem(line));
}
