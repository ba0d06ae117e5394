// The levels of numbers and neutral characters (rules W1 to I2), of common/bidi_classes.h.
#include "common/bidi_classes.h"

#include <algorithm>

namespace {
using enum BidiClass;

bool IsNeutral(BidiClass bidi) {
    return bidi == B || bidi == S || bidi == WS || bidi == ON || bidi == PDI ||
           IsIsolateStart(bidi);
}

BidiClass DirectionOf(BidiLevel level) {
    return level % 2 == 1 ? R : L;
}

// One isolating run sequence.
class Sequence {
  public:
    Sequence(BidiText& bidi, const std::vector<TextPos>& places)
        : bidi_(bidi), places_(places), level_(bidi.Level(places.front())) {
        start_ = DirectionOf(std::max(level_, LevelBefore(places.front())));
        const TextPos last = places.back();
        const bool open = IsIsolateStart(bidi.Class(last)); // to the end of the paragraph
        end_ = DirectionOf(std::max(level_, open ? bidi.base : LevelAfter(last)));
    }

    void Resolve() {
        ResolveMarks();
        ResolveNumbers();
        ResolveSeparators();
        ResolveTerminators();
        ResolveLatinNumbers();
        ResolveNeutrals();
        SetLevels();
    }

  private:
    std::size_t Count() const { return places_.size(); }
    BidiClass& At(std::size_t i) { return bidi_.Class(places_[i]); }

    BidiLevel LevelBefore(TextPos at) const {
        while (--at >= 0 && bidi_.Class(at) == BN) {
        }
        return at < 0 ? bidi_.base : bidi_.Level(at);
    }
    BidiLevel LevelAfter(TextPos at) const {
        while (++at < bidi_.Size() && bidi_.Class(at) == BN) {
        }
        return at == bidi_.Size() ? bidi_.base : bidi_.Level(at);
    }

    void ResolveMarks() { // W1
        BidiClass before = start_;
        for (std::size_t i = 0; i < Count(); ++i) {
            if (At(i) == NSM) At(i) = before;
            before = IsIsolateStart(At(i)) || At(i) == PDI ? ON : At(i);
        }
    }

    void ResolveNumbers() { // W2 and W3
        BidiClass strong = start_;
        for (std::size_t i = 0; i < Count(); ++i) {
            BidiClass& each = At(i);
            if (each == L || each == R || each == AL) strong = each;
            if (each == EN && strong == AL) each = AN;
        }
        for (std::size_t i = 0; i < Count(); ++i)
            if (At(i) == AL) At(i) = R;
    }

    void ResolveSeparators() { // W4
        for (std::size_t i = 1; i + 1 < Count(); ++i) {
            const BidiClass before = At(i - 1), after = At(i + 1);
            if (before != after) continue;
            if (before == EN && (At(i) == ES || At(i) == CS)) At(i) = EN;
            if (before == AN && At(i) == CS) At(i) = AN;
        }
    }

    void ResolveTerminators() { // W5 and W6
        for (std::size_t i = 0; i < Count();) {
            std::size_t to = i;
            while (to < Count() && At(to) == ET)
                ++to;
            const bool besideNumber = (i > 0 && At(i - 1) == EN) || (to < Count() && At(to) == EN);
            for (; i < to; ++i)
                At(i) = besideNumber ? EN : ON;
            ++i;
        }
        for (std::size_t i = 0; i < Count(); ++i)
            if (At(i) == ES || At(i) == CS) At(i) = ON;
    }

    void ResolveLatinNumbers() { // W7
        BidiClass strong = start_;
        for (std::size_t i = 0; i < Count(); ++i) {
            if (At(i) == L || At(i) == R) strong = At(i);
            if (At(i) == EN && strong == L) At(i) = L;
        }
    }

    static BidiClass AsStrong(BidiClass bidi) { return bidi == EN || bidi == AN ? R : bidi; }

    void ResolveNeutrals() { // N1 and N2
        for (std::size_t i = 0; i < Count();) {
            std::size_t to = i;
            while (to < Count() && IsNeutral(At(to)))
                ++to;
            const BidiClass before = i > 0 ? AsStrong(At(i - 1)) : start_;
            const BidiClass after = to < Count() ? AsStrong(At(to)) : end_;
            for (; i < to; ++i)
                At(i) = before == after ? before : DirectionOf(level_);
            ++i;
        }
    }

    void SetLevels() { // I1 and I2
        for (std::size_t i = 0; i < Count(); ++i) {
            const BidiClass each = At(i);
            int up = 0;
            if (level_ % 2 == 1)
                up = each == R ? 0 : 1;
            else if (each != L)
                up = each == R ? 1 : 2;
            bidi_.resolved[std::size_t(places_[i])] = BidiLevel(level_ + up);
        }
    }

    BidiText& bidi_;
    const std::vector<TextPos>& places_;
    BidiLevel level_ = 0;
    BidiClass start_ = L, end_ = L; // sos and eos
};
} // namespace

void ResolveSequence(BidiText& bidi, const std::vector<TextPos>& sequence) {
    Sequence(bidi, sequence).Resolve();
}
