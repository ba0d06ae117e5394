// A text source that returns small pieces: the view must behave as for the same text in memory.
#include "tests/contract/qt/text_view_bench.h"

#include "common/line_ends.h"
#include "formats/plain/plain_text_source.h"
#include "tests/changing_file.h"

#include <doctest/doctest.h>

#include <random>

namespace {
using Random = std::mt19937;

const std::string parts[] = {"a",
                             "word ",
                             "longer-word, ",
                             " ",
                             "\t",
                             "\n",
                             "\r\n",
                             "\r",
                             "\n\n",
                             "\xD7\x90\xD7\x91 ",
                             "12 ",
                             "\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7 ",
                             "\xF0\x9D\x84\x9E",
                             "e\xCC\x81",
                             "\xE4\xB8\xAD\xE6\x96\x87",
                             "\xEF\xBF\xBD",
                             "\xC2\xAD",
                             "\xE2\x80\x8D",
                             "\v"};

std::string RandomBytes(Random& random) {
    std::string bytes;
    const std::size_t length = random() % 1500;
    while (bytes.size() < length)
        bytes += parts[random() % std::size(parts)];
    if (random() % 8 != 0) return bytes;
    // An over-long paragraph, with or without spaces.
    const std::string& filler = parts[random() % 2 == 0 ? 1 : random() % std::size(parts)];
    for (std::size_t size = 0; size < 70'000; size += filler.size())
        bytes += filler;
    return bytes + "\r\nend";
}

std::shared_ptr<PlainTextSource> InPieces(const std::string& bytes, std::size_t pieceBytes) {
    return std::make_shared<PlainTextSource>(std::make_shared<BytesReader>(bytes), 0, 1252,
                                             pieceBytes);
}

struct Pair {
    QtViewBench pieces, memory;
    std::u16string text;

    void ForBoth(const std::function<void(QtViewBench&)>& step) {
        step(pieces);
        step(memory);
    }
    void CheckSame() {
        QtTextView &a = pieces.view, &b = memory.view;
        REQUIRE(a.TextLength() == b.TextLength());
        REQUIRE(a.SelStart() == b.SelStart());
        REQUIRE(a.SelLength() == b.SelLength());
        REQUIRE(a.FirstVisibleChar() == b.FirstVisibleChar());
        REQUIRE((pieces.Widget().CaretRect() == memory.Widget().CaretRect()));
    }
    void CheckSameAt(TextPos position) {
        const LineSpan a = pieces.view.LineAround(position), b = memory.view.LineAround(position);
        REQUIRE(a.start == b.start);
        REQUIRE(a.length == b.length);
        REQUIRE((pieces.view.TextRange(position, 40) == memory.view.TextRange(position, 40)));
        const std::u16string what =
            text.substr(std::min<std::size_t>(std::size_t(position), text.size()), 3);
        const TextPos from = position / 2;
        for (const FindOptions options : {FindOptions{}, {true, false}, {false, true}})
            REQUIRE(pieces.view.Find(what, from, options) == memory.view.Find(what, from, options));
    }
};

constexpr int keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down,    Qt::Key_PageUp,
                        Qt::Key_End,  Qt::Key_Home,  Qt::Key_Space, Qt::Key_PageDown};

void RandomStep(Pair& pair, Random& random) {
    const TextPos position = TextPos(random() % (pair.text.size() + 3));
    const int width = 60 + int(random() % 700), key = keys[random() % std::size(keys)];
    const double size = 6 + double(random() % 20);
    const bool control = random() % 4 == 0, shift = random() % 4 == 0;
    const auto modifiers = (control ? Qt::ControlModifier : Qt::NoModifier) |
                           (shift ? Qt::ShiftModifier : Qt::NoModifier);
    switch (random() % 12) {
    case 0: return pair.ForBoth([&](auto& b) { b.view.SetBounds({0, 0, width, width / 2}); });
    case 1: return pair.ForBoth([&](auto& b) { b.view.SetFont({u"", size}); });
    case 2: return pair.ForBoth([&](auto& b) { b.view.SetRightMargin(control ? 0 : width * 40); });
    case 3: return pair.ForBoth([&](auto& b) { b.view.SetAlignment(Alignment(width % 4)); });
    case 4: return pair.ForBoth([&](auto& b) { b.view.ScrollLineToTop(position); });
    case 5: return pair.ForBoth([&](auto& b) { b.view.Select(position, width); });
    case 6: return pair.CheckSameAt(position);
    default: return pair.ForBoth([&](auto& b) { b.Press(key, modifiers); });
    }
}
} // namespace

TEST_CASE("qt text view: a text in pieces equals the same text in memory") {
    Random random(4242); // NOLINT: reproducible
    Pair pair;
    for (int round = 0; round < 150; ++round) {
        CAPTURE(round);
        const std::string bytes = RandomBytes(random);
        pair.text = DecodePlainText(bytes, 0, 1252).text;
        pair.memory.view.LoadPlainText(pair.text);
        UnifyLineEnds(pair.text);
        const bool large = bytes.size() > 2000;
        pair.pieces.view.LoadText(InPieces(bytes, large ? 1000 : 1 + random() % 64));
        for (int step = 0; step < 40; ++step) {
            RandomStep(pair, random);
            pair.CheckSame();
        }
        REQUIRE((pair.pieces.Widget().grab().toImage() == pair.memory.Widget().grab().toImage()));
    }
}

TEST_CASE("qt text view: a file that shrinks while it is read is shown as far as it exists") {
    std::string bytes;
    for (int i = 0; i < 20'000; ++i)
        bytes += "line " + std::to_string(i) + "\n";
    const auto file = std::make_shared<ChangingFile>(bytes);
    QtViewBench bench;
    bench.view.LoadText(std::make_shared<PlainTextSource>(file, 0, 1252, 4096));
    const TextPos length = bench.view.TextLength();
    for (const std::size_t left : {bytes.size() / 2, std::size_t(5), std::size_t(0)}) {
        file->bytes.resize(left);
        for (const TextPos position : {0, length / 3, length - 1, length}) {
            bench.view.ScrollLineToTop(position);
            bench.Widget().grab();
            bench.Press(Qt::Key_PageUp);
            bench.Press(Qt::Key_End, Qt::ControlModifier);
        }
        CHECK(bench.view.TextLength() == length);
    }
    CHECK(bench.view.TextRange(length - 2, 2) == u"\uFFFD\uFFFD");
}
