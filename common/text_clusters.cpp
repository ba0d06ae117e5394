#include "common/text_clusters.h"

#include "common/text_characters.h"
#include "common/unicode.h"

namespace {
bool IsOneSyllable(ClusterJoin before, ClusterJoin join) {
    using enum ClusterJoin;
    switch (before) {
    case LeadingJamo:
        return join == LeadingJamo || join == VowelJamo || join == OpenSyllable ||
               join == ClosedSyllable;
    case OpenSyllable:
    case VowelJamo: return join == VowelJamo || join == TrailingJamo;
    case ClosedSyllable:
    case TrailingJamo: return join == TrailingJamo;
    default: return false;
    }
}

class ClusterBreaks {
  public:
    // Whether the next character starts a cluster.
    bool StartsWith(ClusterJoin join) {
        const bool starts = !Joins(join);
        if (join == ClusterJoin::Pictograph)
            pictograph_ = true;
        else if (join == ClusterJoin::Joiner ? before_ == join : join != ClusterJoin::Extending)
            pictograph_ = false;
        indicators_ = join == ClusterJoin::RegionalIndicator ? indicators_ + 1 : 0;
        before_ = join;
        return starts;
    }

  private:
    bool Joins(ClusterJoin join) const {
        using enum ClusterJoin;
        if (before_ == Control || join == Control) return false;
        if (join == Extending || join == Joiner || before_ == Prepended) return true;
        if (join == Pictograph) return before_ == Joiner && pictograph_;
        if (join == RegionalIndicator) return indicators_ % 2 == 1;
        return IsOneSyllable(before_, join);
    }

    ClusterJoin before_ = ClusterJoin::Control;
    bool pictograph_ = false; // the cluster is one, with marks and joiners only
    int indicators_ = 0;      // regional ones in a row before
};
} // namespace

std::vector<TextPos> ClusterStarts(std::u16string_view text) {
    std::vector<TextPos> starts;
    starts.reserve(text.size() + 1);
    ClusterBreaks breaks;
    ForEachCharacter(text, [&](TextPos at, char32_t character) {
        if (breaks.StartsWith(ClusterJoinOf(character))) starts.push_back(at);
    });
    starts.push_back(TextPos(text.size()));
    return starts;
}
