// Quick estimates of the width of many texts.
#pragma once

#include <QFontMetrics>

#include <string_view>
#include <vector>

// Adds up the widths of single characters, each measured once: near enough to tell which texts are
// widest.
class TextExtent {
  public:
    explicit TextExtent(const QFont& font) : metrics_(font), widths_(0x10000, unknown) {}

    int Width(std::u16string_view); // pixels

  private:
    static constexpr int unknown = -1;

    QFontMetrics metrics_;
    std::vector<int> widths_; // by UTF-16 unit
};
