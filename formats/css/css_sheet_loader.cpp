#include "formats/css/css_sheet_loader.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_parser.h"
#include "formats/css/css_tokenizer.h"

#include <algorithm>

namespace {

bool MayImport(std::u16string_view text) {
    constexpr std::u16string_view rule = u"@import";
    for (std::size_t at = text.find(u'@'); at != text.npos; at = text.find(u'@', at + 1))
        if (CssEqual(text.substr(at, rule.size()), rule)) return true;
    return false;
}

class SheetLoader {
  public:
    SheetLoader(const CssMedium& medium, int pageCodePage, const CssFileReader& read)
        : pageCodePage_(pageCodePage), read_(read) {
        reading_.medium = medium;
    }

    void Add(const CssPageSheet& sheet) {
        if (sheet.address.empty())
            AddText(sheet.text, u"");
        else
            AddFile(sheet.address);
    }
    std::vector<std::u16string> Take() { return std::move(texts_); }

  private:
    void AddFile(const std::u16string& address) {
        const bool isOpen = std::find(open_.begin(), open_.end(), address) != open_.end();
        if (address.empty() || isOpen || open_.size() >= maxCssImportDepth) return;
        if (files_++ >= maxCssFiles) return;
        const std::string bytes = read_(address);
        if (bytes.empty() || bytes.size() > maxCssFileBytes - bytes_) return;
        bytes_ += bytes.size();
        open_.push_back(address);
        AddText(DecodeCss(bytes, pageCodePage_), address);
        open_.pop_back();
    }

    void AddText(std::u16string text, const std::u16string& address) {
        // Most import nothing, and are read once more for each window.
        if (MayImport(text))
            for (const std::u16string& each : ReadCss(text, reading_).imports)
                AddFile(AddressFrom(address, each));
        texts_.push_back(std::move(text));
    }

    CssReading reading_;
    int pageCodePage_;
    const CssFileReader& read_;
    std::vector<std::u16string> texts_;
    std::vector<std::u16string> open_; // files that import what is read now
    std::size_t files_ = 0, bytes_ = 0;
};

// It leads to the same place from any file: it has a scheme or a drive, or begins at a root.
bool IsAbsolute(std::u16string_view address) {
    if (address.starts_with(u'/') || address.starts_with(u'\\')) return true;
    return address.substr(0, address.find_first_of(u"/\\?#")).find(u':') != address.npos;
}

std::u16string_view Trimmed(std::u16string_view address) {
    while (!address.empty() && IsCssSpace(address.front()))
        address.remove_prefix(1);
    while (!address.empty() && IsCssSpace(address.back()))
        address.remove_suffix(1);
    return address;
}

} // namespace

std::u16string AddressFrom(std::u16string_view file, std::u16string_view address) {
    address = Trimmed(address);
    if (IsAbsolute(address)) return std::u16string(address);
    if (file.starts_with(u"data:")) return {}; // it stands in no folder
    file = file.substr(0, file.find_first_of(u"?#"));
    const std::size_t folder = file.find_last_of(u"/\\") + 1; // 0 for none
    return std::u16string(file.substr(0, folder)) + std::u16string(address);
}

std::vector<std::u16string> LoadCssTexts(const HtmlTree& tree, const CssMedium& medium,
                                         int pageCodePage, const CssFileReader& read) {
    SheetLoader loader(medium, pageCodePage, read);
    for (const CssPageSheet& sheet : FindCssSheets(tree, medium))
        loader.Add(sheet);
    return loader.Take();
}
