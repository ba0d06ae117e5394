// The font of a LOGFONT, whose numbers are 16 bits wide in WMF and 32 bits in EMF.
#pragma once

#include "formats/metafile/metafile_bytes.h"
#include "formats/metafile/metafile_canvas.h"

struct MetaFontNumbers {
    double height = 0;     // negative of the em, positive of the whole line
    double escapement = 0; // tenths of degrees
    std::uint32_t weight = 0;
};

// All but the name. At `flagsAt` are four bytes: italic, underlined, struck out, character set.
MetaFont MetaFontOf(const MetaFontNumbers& numbers, const MetaBytes& record, std::size_t flagsAt);
