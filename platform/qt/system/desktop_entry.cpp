#include "platform/qt/system/desktop_entry.h"

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return Trimmed(line);
}

// How well a key names the program for a locale: 0 not at all, 1 in any language, 2 and 3 in its
// own.
int Fit(std::string_view key, std::string_view locale) {
    if (key == "Name") return 1;
    if (!key.starts_with("Name[") || !key.ends_with("]")) return 0;
    const std::string_view language = key.substr(5, key.size() - 6);
    if (language == locale) return 3;
    return language == locale.substr(0, locale.find('_')) ? 2 : 0;
}

} // namespace

std::string DesktopEntryName(std::string_view file, std::string_view locale) {
    std::string name;
    int bestFit = 0;
    bool inEntry = false;
    while (!file.empty()) {
        const std::string_view line = TakeLine(file);
        if (line.starts_with("[")) {
            if (inEntry) break; // the groups after the first describe extra actions
            inEntry = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inEntry || equals == std::string_view::npos) continue;
        if (const int fit = Fit(Trimmed(line.substr(0, equals)), locale); fit > bestFit) {
            bestFit = fit;
            name = Trimmed(line.substr(equals + 1));
        }
    }
    return name;
}
