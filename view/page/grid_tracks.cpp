#include "view/page/grid_tracks.h"

#include "formats/css/css_longhands.h"

#include <algorithm>

namespace {
bool IsLength(const CssValue& value, double whole) {
    return value.kind == CssValue::Kind::Length ||
           (whole >= 0 &&
            (value.kind == CssValue::Kind::Percent || value.kind == CssValue::Kind::Sum));
}

double LengthOf(const CssValue& value, double whole, double scale) {
    if (value.kind == CssValue::Kind::Percent) return whole * value.number / 100;
    const double pixels = value.number * scale;
    return value.kind == CssValue::Kind::Sum ? pixels + whole * std::int16_t(value.keyword) / 10'000
                                             : pixels;
}

bool IsKeyword(const CssValue& value, std::uint16_t keyword) {
    return value.kind == CssValue::Kind::Keyword && value.keyword == keyword;
}

class TrackSizer {
  public:
    TrackSizer(std::vector<GridTrackSize> tracks, double room, double gap)
        : tracks_(std::move(tracks)), room_(room), gap_(gap) {}

    std::vector<double> Run(std::vector<GridContent> items) {
        // Items of fewer tracks first: those of more ask for what is then missing.
        std::ranges::stable_sort(items, {}, [](const auto& item) { return item.span.Length(); });
        for (const GridContent& item : items)
            Add(item);
        for (GridTrackSize& track : tracks_)
            track.limit = std::max(track.base, std::min(track.limit, track.maxLimit));
        Grow();
        Share();
        Stretch();
        std::vector<double> sizes;
        for (const GridTrackSize& track : tracks_)
            sizes.push_back(track.base);
        return sizes;
    }

  private:
    bool HasShares(GridSpan span) const {
        return std::any_of(tracks_.begin() + long(span.start), tracks_.begin() + long(span.end),
                           [](const GridTrackSize& track) { return track.shares > 0; });
    }

    template <class Takes, class Part>
    void Distribute(GridSpan span, double size, Takes takes, Part part) {
        double missing = size - gap_ * double(span.Length() - 1);
        int count = 0;
        const bool hasShares = HasShares(span);
        const auto isTaking = [&](const GridTrackSize& track) {
            return takes(track) && (!hasShares || track.shares > 0);
        };
        for (std::size_t i = span.start; i < span.end; ++i) {
            missing -= part(tracks_[i]);
            count += isTaking(tracks_[i]);
        }
        if (missing <= 0 || count == 0) return;
        for (std::size_t i = span.start; i < span.end; ++i)
            if (isTaking(tracks_[i])) part(tracks_[i]) += missing / count;
    }

    void Add(const GridContent& item) {
        const auto base = [](GridTrackSize& track) -> double& { return track.base; };
        const auto limit = [](GridTrackSize& track) -> double& { return track.limit; };
        // One that spans shares and other tracks has no least width of its own by CSS.
        if (item.span.Length() == 1 || !HasShares(item.span)) {
            Distribute(
                item.span, item.autoMin, [](const GridTrackSize& track) { return track.minIsAuto; },
                base);
            Distribute(
                item.span, item.extent.min,
                [](const GridTrackSize& track) { return track.minByContent && !track.minIsAuto; },
                base);
        }
        Distribute(
            item.span, item.extent.max,
            [](const GridTrackSize& track) { return track.minIsWidest; }, base);
        Distribute(
            item.span, item.extent.min,
            [](const GridTrackSize& track) { return track.maxIsNarrowest; }, limit);
        Distribute(
            item.span, item.extent.max,
            [](const GridTrackSize& track) {
                return track.maxByContent && !track.maxIsNarrowest && track.shares == 0;
            },
            limit);
    }

    double Free() const {
        double free = room_ - gap_ * double(tracks_.size() - 1);
        for (const GridTrackSize& track : tracks_)
            free -= track.base;
        return free;
    }

    // Up to what their content asks for.
    void Grow() {
        if (room_ < 0) {
            for (GridTrackSize& track : tracks_)
                track.base = std::max(track.base, track.limit);
            return;
        }
        for (std::size_t round = 0; round <= tracks_.size(); ++round) {
            const double free = Free();
            const auto growing = std::ranges::count_if(
                tracks_, [](const auto& track) { return track.base < track.limit - 1e-6; });
            if (free <= 1e-6 || growing == 0) return;
            for (GridTrackSize& track : tracks_)
                if (track.base < track.limit)
                    track.base = std::min(track.limit, track.base + free / double(growing));
        }
    }

    // What is left; a track keeps what its content needs.
    void Share() {
        std::vector<bool> fixed(tracks_.size(), false);
        for (std::size_t round = 0; round <= tracks_.size(); ++round) {
            double shares = 0, free = Free();
            for (std::size_t i = 0; i < tracks_.size(); ++i)
                if (tracks_[i].shares > 0 && !fixed[i]) {
                    shares += tracks_[i].shares;
                    free += tracks_[i].base;
                }
            if (shares <= 0) return;
            const double one =
                room_ >= 0 ? std::max(0.0, free) / std::max(1.0, shares) : LargestShare();
            bool limited = false;
            for (std::size_t i = 0; i < tracks_.size(); ++i)
                if (tracks_[i].shares > 0 && !fixed[i] && tracks_[i].base > one * tracks_[i].shares)
                    fixed[i] = limited = true;
            if (limited && room_ >= 0) continue;
            for (std::size_t i = 0; i < tracks_.size(); ++i)
                if (tracks_[i].shares > 0 && !fixed[i])
                    tracks_[i].base = std::max(tracks_[i].base, one * tracks_[i].shares);
            return;
        }
    }

    double LargestShare() const {
        double largest = 0;
        for (const GridTrackSize& track : tracks_)
            if (track.shares > 0)
                largest = std::max(largest, track.base / std::max(1.0, track.shares));
        return largest;
    }

    void Stretch() {
        const auto count = std::ranges::count_if(
            tracks_, [](const auto& track) { return track.stretches && track.shares == 0; });
        const double free = Free();
        if (room_ < 0 || free <= 0 || count == 0) return;
        for (GridTrackSize& track : tracks_)
            if (track.stretches && track.shares == 0) track.base += free / double(count);
    }

    std::vector<GridTrackSize> tracks_;
    const double room_, gap_;
};
} // namespace

GridTrackSize GridTrackSizeOf(const CssGridTrack& track, double whole, double scale) {
    GridTrackSize size;
    const bool isLength = IsLength(track.min, whole);
    if (isLength) size.base = LengthOf(track.min, whole, scale);
    size.minIsWidest = IsKeyword(track.min, cssMaxContent);
    size.minByContent = !isLength && !size.minIsWidest;
    size.minIsAuto = IsKeyword(track.min, 0);
    if (track.max.kind == CssValue::Kind::Number) {
        size.shares = track.max.number;
        size.maxByContent = size.shares == 0;
    } else if (IsLength(track.max, whole) && !track.fits) {
        size.limit = LengthOf(track.max, whole, scale);
    } else {
        size.maxByContent = true;
        size.maxIsNarrowest = IsKeyword(track.max, cssMinContent);
        size.stretches = IsKeyword(track.max, 0);
        if (track.fits && IsLength(track.max, whole))
            size.maxLimit = LengthOf(track.max, whole, scale);
    }
    return size;
}

std::vector<double> GridTrackSizes(std::vector<GridTrackSize> tracks,
                                   const std::vector<GridContent>& items, double room, double gap) {
    if (tracks.empty()) return {};
    return TrackSizer(std::move(tracks), room, gap).Run(items);
}
