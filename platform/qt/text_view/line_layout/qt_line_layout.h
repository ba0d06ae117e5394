// Line layout by QTextLayout.
#pragma once

#include "platform/line_layout.h"
#include "platform/qt/text_view/line_layout/pinned_fonts.h"

#include <QImage>
#include <QTextCharFormat>

#include <unordered_map>

// In a QTextCharFormat: pixels by which a character, and the last of spaces between words, is wider
// than its glyph. The glyph's advance does not tell, and its font says it in other units.
constexpr int letterSpacingProperty = QTextFormat::UserProperty;
constexpr int wordSpacingProperty = letterSpacingProperty + 1;
// QTextLayout takes letter spacing, but no other one, in the resolution of the primary screen.
double FontLetterSpacing(const QPaintDevice& device, double pixels);

class QtStyle : public PreparedStyle {
  public:
    explicit QtStyle(QTextCharFormat prepared) : format(std::move(prepared)) {}
    QTextCharFormat format;
    bool exactSize = false;
    double sizeFactor = 1; // of the size asked for to that of the format
    // By what part letters of the exact size are wider than Qt has them, which cuts every advance
    // off to a 64th of a pixel.
    double cutOff = 0;
    double maxInk = 0; // pixels that a letter may reach beyond its advance
};

class QtLineLayout : public LineLayout {
  public:
    void SetResolution(double dpi) override;
    bool IsInstalled(std::u16string_view family) override;
    std::u16string FamilyOf(GenericFamily family) override;
    StyleHandle Prepare(const TextStyle& style) override;
    FontMetrics Metrics(const PreparedStyle& style) const override;
    std::unique_ptr<TextLines> BreakLines(const ParagraphText& paragraph) override;

  private:
    struct ExactSize {
        double cutOff = 0, maxInk = 0; // as in QtStyle
    };
    ExactSize ExactSizeOf(const QFont& font, double sizeFactor);

    std::unordered_map<QFont, ExactSize, FontHash> exactSizes_;
    QImage screen_{1, 1, QImage::Format_Mono}; // a paint device of the screen's resolution
};
