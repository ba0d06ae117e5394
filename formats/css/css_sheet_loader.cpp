#include "formats/css/css_sheet_loader.h"

#include "common/utf.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_tokenizer.h"

#include <algorithm>

namespace {

class SheetLoader {
  public:
    explicit SheetLoader(const CssLoading& loading) : loading_(loading) {}

    void Add(const CssPageSheet& sheet) {
        if (sheet.address.empty())
            AddSheet(sheet.text, u"");
        else
            AddFile(PathInFolder(sheet.address, u""));
    }
    std::vector<CssSheet> Take() { return std::move(sheets_); }

  private:
    void AddFile(const std::u16string& path) {
        const bool isOpen = std::find(open_.begin(), open_.end(), path) != open_.end();
        if (path.empty() || isOpen || open_.size() >= maxCssImportDepth) return;
        if (!loading_.readFile || files_++ >= maxCssFiles) return;
        const std::optional<std::string> bytes = loading_.readFile(path);
        if (!bytes || bytes->size() > maxCssFileBytes - bytes_) return;
        bytes_ += bytes->size();
        open_.push_back(path);
        AddSheet(DecodeCss(*bytes, loading_.pageCodePage), path);
        open_.pop_back();
    }

    void AddSheet(std::u16string_view text, const std::u16string& path) {
        CssSheet sheet = ReadCss(text, loading_.reading);
        for (const std::u16string& address : sheet.imports)
            AddFile(PathInFolder(address, path));
        sheets_.push_back(std::move(sheet));
    }

    const CssLoading& loading_;
    std::vector<CssSheet> sheets_;
    std::vector<std::u16string> open_; // files that import what is read now
    std::size_t files_ = 0, bytes_ = 0;
};

// Without the spaces around it, a query and a fragment, which lead into the same file.
std::u16string_view PathOf(std::u16string_view address) {
    while (!address.empty() && IsCssSpace(address.front()))
        address.remove_prefix(1);
    while (!address.empty() && IsCssSpace(address.back()))
        address.remove_suffix(1);
    return address.substr(0, address.find_first_of(u"?#"));
}

int HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return -1;
}

// Escaped bytes are UTF-8.
std::u16string Unescaped(std::u16string_view path) {
    if (path.find(u'%') == path.npos) return std::u16string(path);
    const std::string bytes = Utf16ToUtf8(path);
    std::string unescaped;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const bool fits = bytes[at] == '%' && at + 2 < bytes.size();
        const int high = fits ? HexDigit(static_cast<unsigned char>(bytes[at + 1])) : -1;
        const int low = fits ? HexDigit(static_cast<unsigned char>(bytes[at + 2])) : -1;
        if (high >= 0 && low >= 0) {
            unescaped += static_cast<char>(high * 16 + low);
            at += 2;
        } else
            unescaped += bytes[at];
    }
    return Utf8ToUtf16(unescaped);
}

// False when it leads above the first of them.
bool AddParts(std::u16string_view path, std::vector<std::u16string_view>& parts) {
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(u'/'), path.size());
        const std::u16string_view part = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (part == u"..") {
            if (parts.empty()) return false;
            parts.pop_back();
        } else if (!part.empty() && part != u".")
            parts.push_back(part);
    }
    return true;
}

} // namespace

std::u16string PathInFolder(std::u16string_view address, std::u16string_view from) {
    const std::u16string path = Unescaped(PathOf(address));
    // A scheme, a drive or a stream of a file; a root; the separator of one system only.
    if (path.empty() || path.front() == u'/' || path.find_first_of(u":\\") != path.npos ||
        path.find(u'\0') != path.npos)
        return {};
    std::vector<std::u16string_view> parts;
    AddParts(from.substr(0, from.rfind(u'/') + 1), parts);
    if (!AddParts(path, parts)) return {};
    std::u16string joined;
    for (const std::u16string_view part : parts) {
        if (!joined.empty()) joined += u'/';
        joined += part;
    }
    return joined;
}

std::vector<CssSheet> LoadCssSheets(const HtmlTree& tree, const CssLoading& loading) {
    SheetLoader loader(loading);
    for (const CssPageSheet& sheet : FindCssSheets(tree, loading.reading.medium))
        loader.Add(sheet);
    return loader.Take();
}
