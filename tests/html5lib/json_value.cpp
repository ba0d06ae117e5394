#include "json_value.h"

#include "common/utf.h"

#include <cstdlib>

namespace {

const JsonValue nothing;

char16_t HexUnit(std::u16string_view digits) {
    return static_cast<char16_t>(
        std::strtoul(Utf16ToUtf8(digits.substr(0, 4)).c_str(), nullptr, 16));
}

class Parser {
  public:
    explicit Parser(std::u16string_view text) : text_(text) {}

    JsonValue Value() {
        SkipSpaces();
        JsonValue value;
        switch (Unit()) {
        case u'{': return Object();
        case u'[': return List();
        case u'"':
            value.kind = JsonValue::Kind::String;
            value.text = String();
            return value;
        default: return Word();
        }
    }

  private:
    char16_t Unit() const { return at_ < text_.size() ? text_[at_] : u'\0'; }
    void SkipSpaces() {
        while (Unit() == u' ' || Unit() == u'\n' || Unit() == u'\r' || Unit() == u'\t')
            ++at_;
    }
    bool Skip(char16_t unit) {
        SkipSpaces();
        if (Unit() != unit) return false;
        ++at_;
        return true;
    }

    JsonValue Word() {
        JsonValue value;
        const std::size_t begin = at_;
        while (at_ < text_.size() && std::u16string_view(u",]} \n\r\t").find(Unit()) == text_.npos)
            ++at_;
        value.text = text_.substr(begin, at_ - begin);
        value.kind = value.text == u"true"    ? JsonValue::Kind::True
                     : value.text == u"false" ? JsonValue::Kind::False
                     : value.text == u"null"  ? JsonValue::Kind::Null
                                              : JsonValue::Kind::Number;
        return value;
    }

    JsonValue List() {
        JsonValue list;
        list.kind = JsonValue::Kind::List;
        Skip(u'[');
        if (Skip(u']')) return list;
        do
            list.items.push_back(Value());
        while (Skip(u','));
        Skip(u']');
        return list;
    }

    JsonValue Object() {
        JsonValue object;
        object.kind = JsonValue::Kind::Object;
        Skip(u'{');
        if (Skip(u'}')) return object;
        do {
            SkipSpaces();
            std::u16string name = String();
            Skip(u':');
            object.members[name] = Value();
        } while (Skip(u','));
        Skip(u'}');
        return object;
    }

    std::u16string String() {
        std::u16string string;
        for (++at_; at_ < text_.size() && Unit() != u'"'; ++at_) {
            if (Unit() != u'\\') {
                string += Unit();
                continue;
            }
            ++at_;
            switch (Unit()) {
            case u'b': string += u'\b'; break;
            case u'f': string += u'\f'; break;
            case u'n': string += u'\n'; break;
            case u'r': string += u'\r'; break;
            case u't': string += u'\t'; break;
            case u'u':
                string += HexUnit(text_.substr(at_ + 1));
                at_ += 4;
                break;
            default: string += Unit();
            }
        }
        ++at_;
        return string;
    }

    std::u16string_view text_;
    std::size_t at_ = 0;
};

} // namespace

const JsonValue& JsonValue::operator[](std::u16string_view name) const {
    const auto member = members.find(std::u16string(name));
    return member == members.end() ? nothing : member->second;
}

const JsonValue& JsonValue::operator[](std::size_t index) const {
    return index < items.size() ? items[index] : nothing;
}

JsonValue ParseJson(std::string_view utf8) {
    const std::u16string text = Utf8ToUtf16(utf8);
    return Parser(text).Value();
}

std::u16string Unescaped(std::u16string_view text) {
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) != u"\\u") {
            result += text[i];
            continue;
        }
        result += HexUnit(text.substr(i + 2));
        i += 5;
    }
    return result;
}
