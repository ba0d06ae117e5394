#include "formats/rtf/rtf_text_decoder.h"

#include "common/utf.h"
#include "formats/codepages/code_pages.h"

#include <algorithm>

namespace {

unsigned char Unsigned(char c) {
    return static_cast<unsigned char>(c);
}

} // namespace

void RtfTextDecoder::UsePage(int codePage) {
    if (page_ && page_->number == codePage) return;
    const auto [found, isNew] = pages_.try_emplace(codePage);
    page_ = &found->second;
    if (!isNew) return;
    found->second.number = codePage;
    for (int i = 0; i < 128; ++i) {
        const auto byte = static_cast<unsigned char>(0x80 + i);
        if (codePage == utf8Page || IsLeadByte(codePage, byte)) continue;
        std::u16string unit;
        DecodeCodePage(codePage, std::string_view(reinterpret_cast<const char*>(&byte), 1), unit);
        found->second.highUnits[static_cast<std::size_t>(i)] = unit.front();
    }
}

void RtfTextDecoder::Decode(int codePage, std::string_view bytes, std::u16string& text) {
    if (IsPending() && page_->number != codePage) Flush(text);
    UsePage(codePage);
    while (!bytes.empty()) {
        if (!IsPending()) bytes.remove_prefix(DecodeSingleBytes(bytes, text));
        if (bytes.empty()) return;
        AddPending(bytes.front(), text);
        bytes.remove_prefix(1);
    }
}

// Returns how many bytes it read: up to a lead byte.
std::size_t RtfTextDecoder::DecodeSingleBytes(std::string_view bytes, std::u16string& text) const {
    const auto unitOf = [this](char c) -> char16_t {
        const unsigned char byte = Unsigned(c);
        return byte < 0x80 ? byte : page_->highUnits[byte - 0x80];
    };
    std::size_t count = 0;
    while (count < bytes.size() && unitOf(bytes[count]) != leadByte)
        ++count;
    const std::size_t start = text.size();
    text.resize(start + count);
    std::transform(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count),
                   text.begin() + static_cast<std::ptrdiff_t>(start), unitOf);
    return count;
}

void RtfTextDecoder::AddPending(char byte, std::u16string& text) {
    const bool breaksUtf8 = page_->number == utf8Page && IsPending() && !IsUtf8Continuation(byte);
    if (breaksUtf8) DecodePending(text);
    pending_[pendingSize_++] = byte;
    const std::string_view bytes(pending_.data(), pendingSize_);
    if (pendingSize_ == SequenceLength(page_->number, bytes)) DecodePending(text);
}

void RtfTextDecoder::DecodePending(std::u16string& text) {
    const std::size_t start = text.size();
    const std::string_view bytes(pending_.data(), pendingSize_);
    DecodeCodePage(page_->number, bytes, text);
    const bool isWrong = text.find(u'\uFFFD', start) != text.npos;
    if (isWrong && filePage_ != 0 && page_->number != utf8Page && IsSingleBytePage(filePage_)) {
        text.resize(start);
        DecodeCodePage(filePage_, bytes, text);
    }
    std::replace(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), u'\uFFFC',
                 u'\uFFFD');
    pendingSize_ = 0;
}

void RtfTextDecoder::Flush(std::u16string& text) {
    if (IsPending()) DecodePending(text);
}
