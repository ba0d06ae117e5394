// As much of JSON as the tokenizer's cases need. Strings are UTF-16: some cases hold lone
// surrogates.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct JsonValue {
    enum class Kind { Null, False, True, Number, String, List, Object };

    Kind kind = Kind::Null;
    std::u16string text; // of a string or a number
    std::vector<JsonValue> items;
    std::map<std::u16string, JsonValue> members;

    // Null for what is not there.
    const JsonValue& operator[](std::u16string_view name) const;
    const JsonValue& operator[](std::size_t index) const;
    bool IsTrue() const { return kind == Kind::True; }
    bool IsNull() const { return kind == Kind::Null; }
};

JsonValue ParseJson(std::string_view utf8);

// "\u0041" in a text becomes "A".
std::u16string Unescaped(std::u16string_view text);
