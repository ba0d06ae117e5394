// Embeddings, overrides and isolates (rules X1 to X9), of common/bidi_classes.h.
#include "common/bidi_classes.h"

namespace {
using enum BidiClass;

constexpr BidiLevel maxDepth = 125;

// The direction of the first strong character that is in no isolate (rules P2 and P3).
bool StartsRightToLeft(const BidiText& bidi, TextPos from, TextPos to) {
    for (TextPos at = from; at < to; ++at) {
        const BidiClass each = bidi.Class(at);
        if (each == L) return false;
        if (each == R || each == AL) return true;
        if (!IsIsolateStart(each)) continue;
        const TextPos end = bidi.matching[std::size_t(at)];
        if (end < 0) return false;
        at = end;
    }
    return false;
}

class DirectionStack {
  public:
    explicit DirectionStack(BidiText& bidi) : bidi_(bidi) {
        entries_.push_back({bidi.base, ON, false});
    }

    void Take(TextPos at) {
        const BidiClass each = bidi_.Class(at);
        switch (each) {
        case LRE: return Embed(at, false, ON);
        case RLE: return Embed(at, true, ON);
        case LRO: return Embed(at, false, L);
        case RLO: return Embed(at, true, R);
        case PDF: return EndEmbedding(at);
        case LRI: return Isolate(at, false);
        case RLI: return Isolate(at, true);
        case FSI: return Isolate(at, StartsRightToLeft(bidi_, at + 1, EndOfIsolate(at)));
        case PDI: return EndIsolate(at);
        case BN: return;
        case B: bidi_.Level(at) = bidi_.base; return;
        default: return Place(at);
        }
    }

  private:
    struct Entry {
        BidiLevel level;
        BidiClass override; // ON: none
        bool isolate;
    };

    void Place(TextPos at) {
        bidi_.Level(at) = entries_.back().level;
        if (entries_.back().override != ON) bidi_.Class(at) = entries_.back().override;
    }

    TextPos EndOfIsolate(TextPos at) const {
        const TextPos end = bidi_.matching[std::size_t(at)];
        return end < 0 ? bidi_.Size() : end;
    }

    // False where the depth is exceeded.
    bool Push(bool rightToLeft, BidiClass override, bool isolate) {
        const int level = entries_.back().level;
        const int next = rightToLeft ? (level + 1) | 1 : (level + 2) & ~1;
        if (next > maxDepth || overflowIsolates_ > 0 || overflowEmbeddings_ > 0) return false;
        entries_.push_back({BidiLevel(next), override, isolate});
        return true;
    }

    void Embed(TextPos at, bool rightToLeft, BidiClass override) {
        bidi_.Class(at) = BN;
        if (!Push(rightToLeft, override, false) && overflowIsolates_ == 0) ++overflowEmbeddings_;
    }

    void EndEmbedding(TextPos at) {
        bidi_.Class(at) = BN;
        if (overflowIsolates_ > 0) return;
        if (overflowEmbeddings_ > 0)
            --overflowEmbeddings_;
        else if (!entries_.back().isolate && entries_.size() > 1)
            entries_.pop_back();
    }

    void Isolate(TextPos at, bool rightToLeft) {
        Place(at);
        if (Push(rightToLeft, ON, true))
            ++isolates_;
        else
            ++overflowIsolates_;
    }

    void EndIsolate(TextPos at) {
        if (overflowIsolates_ > 0) {
            --overflowIsolates_;
        } else if (isolates_ > 0) {
            overflowEmbeddings_ = 0;
            while (!entries_.back().isolate)
                entries_.pop_back();
            entries_.pop_back();
            --isolates_;
        }
        Place(at);
    }

    BidiText& bidi_;
    std::vector<Entry> entries_;
    int overflowIsolates_ = 0, overflowEmbeddings_ = 0, isolates_ = 0;
};
} // namespace

void ApplyDirectionControls(BidiText& bidi) {
    DirectionStack stack(bidi);
    for (TextPos at = 0; at < bidi.Size(); ++at)
        stack.Take(at);
}
