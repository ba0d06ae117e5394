// Lays out a word with its annotation above it, such as the reading of ideographs (CSS Ruby 1).
#pragma once

#include "view/page/page_layouter.h"

// It stands on the baseline of its base, which lines make room for as for a box in them.
PageFragmentPtr LayOutRuby(PageLayouter& layouter, PageBoxId ruby, double containing);
WidthExtent RubyExtentOf(PageLayouter& layouter, PageBoxId ruby);
