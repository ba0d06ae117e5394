// The HTML Standard's prescan of a byte stream to determine its encoding.
#include "formats/html/html_declaration.h"

#include "formats/html/html_labels.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

bool IsSpace(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\f' || byte == '\r';
}

char Lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte;
}

bool IsLetter(char byte) {
    return Lower(byte) >= 'a' && Lower(byte) <= 'z';
}

struct Attribute {
    std::string name, value; // in small letters
};

// The label after "charset=" in the value of `content`.
std::string_view LabelInContent(std::string_view content) {
    constexpr std::string_view word = "charset";
    for (std::size_t at = content.find(word); at != content.npos; at = content.find(word, at)) {
        at += word.size();
        while (at < content.size() && IsSpace(content[at]))
            ++at;
        if (at >= content.size() || content[at] != '=') continue;
        ++at;
        while (at < content.size() && IsSpace(content[at]))
            ++at;
        std::string_view rest = content.substr(std::min(at, content.size()));
        if (rest.starts_with('"') || rest.starts_with('\'')) {
            const std::size_t end = rest.find(rest.front(), 1);
            return end == rest.npos ? std::string_view() : rest.substr(1, end - 1);
        }
        const auto end =
            std::ranges::find_if(rest, [](char byte) { return IsSpace(byte) || byte == ';'; });
        return rest.substr(0, std::size_t(end - rest.begin()));
    }
    return {};
}

class Prescan {
  public:
    explicit Prescan(std::string_view bytes) : bytes_(bytes) {}

    int Run() {
        for (; at_ < bytes_.size(); ++at_) {
            if (bytes_[at_] != '<') continue;
            const std::string_view rest = bytes_.substr(at_);
            if (rest.starts_with("<!--")) {
                // "<!-->" is one; so its dashes may be the same.
                SkipTo("-->", at_ + 2);
            } else if (IsMeta(rest)) {
                at_ += 5;
                if (const int page = MetaPage()) return page;
            } else if (IsTag(rest)) {
                while (at_ < bytes_.size() && !IsSpace(bytes_[at_]) && bytes_[at_] != '>')
                    ++at_;
                for (Attribute attribute; ReadAttribute(attribute);) {
                }
            } else if (rest.size() > 1 && (rest[1] == '!' || rest[1] == '/' || rest[1] == '?')) {
                SkipTo(">", at_);
            }
        }
        return 0;
    }

  private:
    static bool IsMeta(std::string_view rest) {
        constexpr std::string_view word = "<meta";
        if (rest.size() <= word.size()) return false;
        return std::ranges::equal(rest.substr(0, word.size()), word, {}, Lower) &&
               (IsSpace(rest[word.size()]) || rest[word.size()] == '/');
    }

    static bool IsTag(std::string_view rest) {
        return rest.size() > 1 &&
               (IsLetter(rest[1]) || (rest[1] == '/' && rest.size() > 2 && IsLetter(rest[2])));
    }

    // Onto the last byte of `what`.
    void SkipTo(std::string_view what, std::size_t from) {
        const std::size_t place = bytes_.find(what, from);
        at_ = place == bytes_.npos ? bytes_.size() : place + what.size() - 1;
    }

    // The first attribute of each name counts.
    int MetaPage() {
        bool hasPragma = false, hasCharset = false, hasContent = false;
        bool isPragma = false, needsPragma = false;
        int page = 0;
        for (Attribute attribute; ReadAttribute(attribute);) {
            if (attribute.name == "http-equiv" && !std::exchange(hasPragma, true)) {
                isPragma = attribute.value == "content-type";
            } else if (attribute.name == "charset" && !std::exchange(hasCharset, true)) {
                page = HtmlLabelCodePage(attribute.value);
                needsPragma = false;
            } else if (attribute.name == "content" && !std::exchange(hasContent, true) &&
                       page == 0) {
                page = HtmlLabelCodePage(LabelInContent(attribute.value));
                needsPragma = true;
            }
        }
        const bool isCut = at_ >= bytes_.size();
        return isCut || (needsPragma && !isPragma) ? 0 : page;
    }

    char Byte() const { return at_ < bytes_.size() ? bytes_[at_] : '>'; }

    // False at the tag's ">", which stays.
    bool ReadAttribute(Attribute& attribute) {
        attribute = {};
        while (at_ < bytes_.size() && (IsSpace(Byte()) || Byte() == '/'))
            ++at_;
        if (Byte() == '>') return false;
        while (!IsSpace(Byte()) && Byte() != '/' && Byte() != '>' &&
               (Byte() != '=' || attribute.name.empty()))
            attribute.name += Lower(bytes_[at_++]);
        while (at_ < bytes_.size() && IsSpace(Byte()))
            ++at_;
        if (Byte() != '=') return true;
        ++at_;
        while (at_ < bytes_.size() && IsSpace(Byte()))
            ++at_;
        const char quote = Byte();
        if (quote == '"' || quote == '\'') {
            for (++at_; at_ < bytes_.size() && Byte() != quote; ++at_)
                attribute.value += Lower(Byte());
            if (at_ < bytes_.size()) ++at_;
            return true;
        }
        while (!IsSpace(Byte()) && Byte() != '>')
            attribute.value += Lower(bytes_[at_++]);
        return true;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
};

// Of "<?xml version="1.0" encoding="..."?>", which must be the first.
int XmlCodePage(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return 0;
    const std::string_view declaration = bytes.substr(0, std::min(bytes.find('>'), maxHtmlPrescan));
    std::size_t at = declaration.find("encoding");
    if (at == declaration.npos) return 0;
    at = declaration.find_first_not_of(" \t\r\n", at + 8);
    if (at == declaration.npos || declaration[at] != '=') return 0;
    at = declaration.find_first_not_of(" \t\r\n", at + 1);
    if (at == declaration.npos || (declaration[at] != '"' && declaration[at] != '\'')) return 0;
    const std::size_t end = declaration.find(declaration[at], at + 1);
    if (end == declaration.npos) return 0;
    return HtmlLabelCodePage(declaration.substr(at + 1, end - at - 1));
}

} // namespace

int DeclaredHtmlCodePage(std::string_view bytes) {
    const int page = Prescan(bytes.substr(0, maxHtmlPrescan)).Run();
    return page != 0 ? page : XmlCodePage(bytes);
}
