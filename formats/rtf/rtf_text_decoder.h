// Bytes of rich text become characters, also when a character's bytes come one by one.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

class RtfTextDecoder {
  public:
    // The one that the file names. Some writers name a Japanese font's charset for Western text:
    // what is no character of the font's page is read in this one.
    void UseFilePage(int codePage) { filePage_ = codePage; }

    // Appends the text of `bytes`, which have no control bytes; the bytes of an unfinished
    // character wait for the next call. U+FFFC, which stands for a picture, becomes U+FFFD.
    void Decode(int codePage, std::string_view bytes, std::u16string& text);
    bool IsPending() const { return pendingSize_ != 0; }
    void Flush(std::u16string& text); // an unfinished character is read as one that is none

  private:
    static constexpr char16_t leadByte = 0;
    struct Page {
        int number = 0;
        std::array<char16_t, 128>
            highUnits{}; // of the bytes from 0x80 on; `leadByte` for the first of several
    };
    void UsePage(int codePage);
    std::size_t DecodeSingleBytes(std::string_view bytes, std::u16string& text) const;
    void AddPending(char byte, std::u16string& text);
    void DecodePending(std::u16string& text);

    int filePage_ = 0;
    std::map<int, Page> pages_;
    const Page* page_ = nullptr;
    std::array<char, 4> pending_{};
    std::size_t pendingSize_ = 0;
};
