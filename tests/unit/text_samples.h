// Plain texts in many encodings, drawn at random.
#pragma once

#include "common/line_ends.h"
#include "formats/plain/plain_text_source.h"

#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

inline std::shared_ptr<BytesReader> Reader(std::string bytes) {
    return std::make_shared<BytesReader>(std::move(bytes));
}

inline std::u16string Whole(const std::string& bytes, int page) {
    std::u16string text = DecodePlainText(bytes, page, 1252).text;
    UnifyLineEnds(text);
    return text;
}

inline std::u16string All(const TextSource& source) {
    return source.Range(0, source.Length());
}

// Each unit in two bytes or four.
std::string Wide(std::u16string_view text, int unitBytes, bool bigEndian);

// What a text of each encoding is made of; drawn at random, so that pieces end everywhere.
struct Sample {
    const char* name;
    int page; // of a book whose bytes show no other
    std::vector<std::string> parts;
    std::string mark = {}; // at the start
};
const std::vector<Sample>& Samples();
std::string Drawn(const Sample& sample, std::mt19937& random, std::size_t length);
