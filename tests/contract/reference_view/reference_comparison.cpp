#include "tests/contract/reference_view/reference_comparison.h"

#include "common/line_ends.h"
#include "formats/plain/plain_text_source.h"
#include "tests/contract/reference_view/reference_style.h"

#include <doctest/doctest.h>

#include <cmath>

ReferenceComparison::ReferenceComparison(LineLayout& lines, Random& random, RandomBook book)
    : random_(random), book_(std::move(book)), view_(lines) {
    view_.window.dpi = OneIn(random_, 3) ? 144 : 96;
    lines.SetResolution(view_.window.dpi);
    reference_.settings.lines = &lines;
    reference_.settings.pixelsPerTwip = view_.window.dpi / 1440;
    Resize();
    Load(Change::None);
}

int ReferenceComparison::BlockTop(TextPos start) const {
    for (const ReferenceBlock& block : Reference().blocks)
        if (block.start == start) return block.top;
    FAIL("no block starts at ", start);
    return 0;
}

void ReferenceComparison::Step() {
    done_ = "other";
    moved_ = false;
    switch (Below(random_, book_.isLong ? 10 : 14)) {
    case 0: return Scroll();
    case 1: return Wheel();
    case 2: return Click();
    case 3: return SelectSome();
    case 10: return Resize();
    case 11: return ChangeStyle();
    case 12: return Load(OneIn(random_, 2) ? Change::CodePage : Change::Book);
    default: return Press();
    }
}

void ReferenceComparison::Load(Change change) {
    if (change == Change::Book) OtherBook();
    reference_.settings.style.fontForAll = false;
    reference_.settings.style.alignment.reset();
    reference_.settings.plain = book_.plain;
    if (book_.plain)
        LoadPlain(change == Change::CodePage);
    else
        LoadRich();
    reference_.settings.document = &document_;
    reference_.Load();
}

void ReferenceComparison::OtherBook() {
    const bool wasLong = book_.isLong;
    book_ = MakeBook(random_, Below(random_, 8));
    if (book_.isLong && !wasLong) book_ = MakeBook(random_, 0);
}

void ReferenceComparison::LoadPlain(bool otherCodePage) {
    const int codePage = otherCodePage ? 1255 : 0; // UTF-8 is detected otherwise
    std::string bytes = book_.bytes;
    if (otherCodePage) bytes += "\xE0"; // invalid UTF-8
    const auto text = std::make_shared<PlainTextSource>(std::make_shared<BytesReader>(bytes),
                                                        codePage, 1252, 500 + random_() % 3000);
    reference_.settings.text = text->Range(0, text->Length());
    document_ = Document();
    if (OneIn(random_, 2))
        view_.LoadText(text);
    else
        view_.LoadPlainText(DecodePlainText(bytes, codePage, 1252).text);
}

void ReferenceComparison::LoadRich() {
    document_ = book_.document;
    reference_.settings.text = document_.text;
    view_.LoadDocument(document_);
}

// Call it after the view's size may have changed; sets the size of the reference.
void ReferenceComparison::Fit() {
    Pane().Scroller();
    margin_ = std::max(int(6 * Ratio()), Room().width / 40);
    const int room = std::max(1, Room().width - 2 * margin_);
    const double right = reference_.settings.style.rightMargin * reference_.settings.pixelsPerTwip;
    const int breakWidth = right > 0 ? int(std::clamp(right, 1.0, double(1 << 24))) : room;
    const int height = std::max(1, Room().height);
    const bool same = breakWidth == reference_.settings.breakWidth &&
                      height == reference_.viewHeight &&
                      std::min(room, breakWidth) == reference_.settings.viewWidth;
    reference_.settings.breakWidth = breakWidth;
    reference_.settings.viewWidth = std::min(room, breakWidth);
    reference_.viewHeight = height;
    const FontMetrics metrics = ViewFontMetrics();
    reference_.lineHeight =
        std::max(1, int(std::lround(metrics.ascent) + std::lround(metrics.descent)));
    if (!reference_.settings.document) return;
    reference_.Relayout();
    if (!same) reference_.KeepEndAtBottom();
}

FontMetrics ReferenceComparison::ViewFontMetrics() const {
    LineLayout& lines = *reference_.settings.lines;
    const CharStyle own;
    ReferenceSettings plain = reference_.settings;
    plain.plain = true;
    return lines.Metrics(*lines.Prepare(ReferenceTextStyle(plain, own, false)));
}

void ReferenceComparison::Resize() {
    const bool narrow = OneIn(random_, 6);
    view_.window.room = {narrow ? 20 + Below(random_, 60) : 100 + Below(random_, 700),
                         OneIn(random_, 6) ? 20 + Below(random_, 40) : 80 + Below(random_, 500)};
    Pane().OnResized();
    Fit();
}

void ReferenceComparison::ChangeStyle() {
    ViewStyle& style = reference_.settings.style;
    switch (Below(random_, 5)) {
    case 0: ChangeFont(); break;
    case 1:
        style.fontForAll = true;
        view_.ApplyFontToAll();
        break;
    case 2:
        style.alignment = Alignment(Below(random_, 4));
        view_.SetAlignment(*style.alignment);
        break;
    default:
        style.rightMargin = OneIn(random_, 2) ? 0 : OneIn(random_, 2) ? 491520 : 3000;
        view_.SetRightMargin(style.rightMargin);
    }
    Fit();
}

void ReferenceComparison::ChangeFont() {
    ViewFont& font = reference_.settings.style.font;
    font.size = OneIn(random_, 8) ? 60 + Below(random_, 200) : 6 + Below(random_, 20);
    font.name = OneIn(random_, 2) ? u"Noto Serif" : u"DejaVu Sans";
    font.italic = OneIn(random_, 3);
    view_.SetFont(font);
}
