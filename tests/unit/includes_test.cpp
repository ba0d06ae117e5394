// Includes point one way: common <- formats <- books, reading, shell <- app, and back ends know the
// ports only.
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>

namespace fs = std::filesystem;

namespace {
// What the headers of a folder may include, besides itself and the ports' headers.
const std::map<std::string, std::set<std::string>> headerMay = {
    {"common", {}},
    {"formats", {"common"}},
    {"books", {"common", "formats", "reading", "shell"}},
    {"reading", {"common", "formats", "books", "shell"}},
    {"shell", {"common", "formats", "books", "reading"}},
    {"app", {"common", "formats", "books", "reading", "shell"}},
    {"platform", {"common", "formats"}},
};

// A source of these may also see the form; the back ends' main.cpp sees the application.
bool SourceMay(const std::string& folder, const fs::path& source, const std::string& included) {
    if (folder == "platform")
        return source.filename() == "main.cpp" && included.starts_with("app/");
    const bool usesForm = folder == "books" || folder == "reading" || folder == "shell";
    return usesForm && included == "app/main_form.h";
}

bool IsPort(const std::string& included) {
    return included.starts_with("platform/") && included.find('/', 9) == std::string::npos;
}

bool IsAllowed(const std::string& folder, const fs::path& source, const std::string& included) {
    const std::string target = included.substr(0, included.find('/'));
    if (!headerMay.contains(target) || target == folder || IsPort(included)) return true;
    return headerMay.at(folder).contains(target) ||
           (source.extension() == ".cpp" && SourceMay(folder, source, included));
}

std::string IncludedBy(const std::string& line) {
    const std::string start = "#include \"";
    if (!line.starts_with(start)) return "";
    return line.substr(start.size(), line.rfind('"') - start.size());
}
} // namespace

TEST_CASE("includes: every module includes what stands below it only") {
    int seen = 0;
    for (const auto& [folder, allowed] : headerMay) {
        for (const auto& entry :
             fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);) {
                const std::string included = IncludedBy(line);
                if (included.empty()) continue;
                ++seen;
                CHECK_MESSAGE(IsAllowed(folder, entry.path(), included),
                              entry.path().string() << " includes " << included);
            }
        }
    }
    CHECK(seen > 100);
}

TEST_CASE("includes: systems are told apart under platform only") {
    for (const auto& [folder, allowed] : headerMay) {
        if (folder == "platform") continue;
        for (const auto& entry :
             fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / folder)) {
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);)
                CHECK_MESSAGE(line.find("_WIN32") == std::string::npos, entry.path().string());
        }
    }
}
