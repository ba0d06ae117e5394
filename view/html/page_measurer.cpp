#include "view/html/page_measurer.h"

bool PageMeasurer::MeasureUntil(PageFlow& flow, const IsEnough& isEnough, Time limit) const {
    const Time end = window_.SteadyTime() + limit;
    while (flow.FirstNotMeasured() < flow.ZoneCount()) {
        if (isEnough(flow.FirstNotMeasured())) return true;
        if (window_.SteadyTime() > end) return false;
        flow.MeasureSome(1); // one may take some of that time
    }
    return true;
}

bool PageMeasurer::MeasureTo(PageFlow& flow, double height, Time limit) const {
    const auto isBelow = [&](std::size_t zone) { return flow.Heights().Top(zone) > height; };
    return MeasureUntil(flow, isBelow, limit);
}

bool PageMeasurer::MeasureAbove(PageFlow& flow, std::size_t zone, Time limit) const {
    return MeasureUntil(
        flow, [zone](std::size_t first) { return first >= zone; }, limit);
}

bool PageMeasurer::MeasureAll(PageFlow& flow, Time limit) const {
    return MeasureUntil(
        flow, [](std::size_t) { return false; }, limit);
}
