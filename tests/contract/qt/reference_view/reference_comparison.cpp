#include "tests/contract/qt/reference_view/reference_comparison.h"

#include "common/line_ends.h"
#include "formats/plain_text_source.h"

#include <doctest/doctest.h>

#include <cmath>

Held::Held(Random& random, RandomBook book) : random_(random), book_(std::move(book)) {
    const double dots = bench_.Widget().logicalDpiX() * Ratio() / 0.0254;
    screen_.setDotsPerMeterX(qRound(dots));
    screen_.setDotsPerMeterY(qRound(dots));
    whole_.setting.device = &screen_;
    whole_.setting.pixelsPerTwip = bench_.Widget().logicalDpiX() * Ratio() / 1440;
    Resize();
    Load(Change::None);
}

int Held::BlockTop(TextPos start) const {
    for (const WholeBlock& block : Whole().blocks)
        if (block.start == start) return block.top;
    FAIL("no block starts at ", start);
    return 0;
}

void Held::Step() {
    done_ = "other";
    moved_ = false;
    switch (Below(random_, book_.isLong ? 10 : 14)) {
    case 0: return Scroll();
    case 1: return Wheel();
    case 2: return Click();
    case 3: return SelectSome();
    case 10: return Resize();
    case 11: return ChangeLook();
    case 12: return Load(OneIn(random_, 2) ? Change::CodePage : Change::Book);
    default: return Press();
    }
}

void Held::Load(Change change) {
    if (change == Change::Book) OtherBook();
    whole_.setting.look.fontForAll = false;
    whole_.setting.look.alignment.reset();
    whole_.setting.plain = book_.plain;
    if (book_.plain)
        LoadPlain(change == Change::CodePage);
    else
        LoadRich();
    whole_.setting.document = &document_;
    whole_.Load();
}

void Held::OtherBook() {
    const bool wasLong = book_.isLong;
    book_ = MakeBook(random_, Below(random_, 8));
    if (book_.isLong && !wasLong) book_ = MakeBook(random_, 0);
}

void Held::LoadPlain(bool otherCodePage) {
    const int codePage = otherCodePage ? 1255 : 0; // else it is found to be UTF-8
    std::string bytes = book_.bytes;
    if (otherCodePage) bytes += "\xE0"; // no longer UTF-8
    const auto text = std::make_shared<PlainTextSource>(std::make_shared<BytesReader>(bytes),
                                                        codePage, 1252, 500 + random_() % 3000);
    whole_.setting.text = text->Range(0, text->Length());
    document_ = Document();
    if (OneIn(random_, 2))
        View().LoadText(text);
    else
        View().LoadPlainText(DecodePlainText(bytes, codePage, 1252).text);
}

void Held::LoadRich() {
    document_ = book_.document;
    whole_.setting.text = document_.text;
    View().LoadDocument(document_);
}

// After a step that may change the view's size; tells the model what there is room for.
void Held::Fit() {
    Widget().Scroller();
    const QSize all = Widget().maximumViewportSize();
    const int width = int(all.width() * Ratio());
    margin_ = std::max(int(6 * Ratio()), width / 40);
    const int room = std::max(1, width - 2 * margin_);
    const double right = whole_.setting.look.rightMargin * whole_.setting.pixelsPerTwip;
    const int breakWidth = right > 0 ? int(std::clamp(right, 1.0, double(1 << 24))) : room;
    const int height = std::max(1, int(all.height() * Ratio()));
    const bool same = breakWidth == whole_.setting.breakWidth && height == whole_.viewHeight &&
                      std::min(room, breakWidth) == whole_.setting.viewWidth;
    whole_.setting.breakWidth = breakWidth;
    whole_.setting.viewWidth = std::min(room, breakWidth);
    whole_.viewHeight = height;
    whole_.lineHeight =
        std::max(1, QFontMetrics(WholeFont(whole_.setting.look.font), &screen_).height());
    if (!whole_.setting.document) return;
    whole_.Relayout();
    if (!same) whole_.SettleAtEnd();
}

void Held::Resize() {
    const bool narrow = OneIn(random_, 6);
    View().SetBounds({0, 0, narrow ? 20 + Below(random_, 60) : 100 + Below(random_, 700),
                      OneIn(random_, 6) ? 10 + Below(random_, 40) : 80 + Below(random_, 500)});
    Fit();
}

void Held::ChangeLook() {
    ViewLook& look = whole_.setting.look;
    switch (Below(random_, 5)) {
    case 0: ChangeFont(); break;
    case 1:
        look.fontForAll = true;
        View().ApplyFontToAll();
        break;
    case 2:
        look.alignment = Alignment(Below(random_, 4));
        View().SetAlignment(*look.alignment);
        break;
    default:
        look.rightMargin = OneIn(random_, 2) ? 0 : OneIn(random_, 2) ? 491520 : 3000;
        View().SetRightMargin(look.rightMargin);
    }
    Fit();
}

void Held::ChangeFont() {
    ViewFont& font = whole_.setting.look.font;
    font.size = OneIn(random_, 8) ? 60 + Below(random_, 200) : 6 + Below(random_, 20);
    font.name = OneIn(random_, 2) ? u"Noto Serif" : u"DejaVu Sans";
    font.italic = OneIn(random_, 3);
    View().SetFont(font);
}
