// How narrow and how wide something can be.
#pragma once

// The widths of its longest stretch without a place to break, and of all in one line.
struct WidthExtent {
    double min = 0, max = 0;
};
