// How the text is to be shown, and the control's formats for it.
#pragma once

#include "formats/document.h"
#include "platform/text_view.h"
#include "platform/windows/base/win32.h"

#include <richedit.h>

#include <optional>
#include <string>

struct TextLook {
    ViewFont font;
    bool fontForAll = false; // over what the file says
    bool autoColor = false;
    Color textColor = 0x000000, backColor = 0xFFFFFF;
    std::optional<Alignment> alignment; // none: what the file says
    int rightMargin = 0;                // twips, 0 wraps at the view's edge
};

CHARFORMAT2W FontFormat(const ViewFont& font);
// Of a text without colours of its own.
CHARFORMAT2W ColorFormat(const TextLook& look);

// The text colour where the file gives none: the system's, unless it cannot be read on this
// background; none for the system's.
std::optional<Color> ReadableAutoColor(Color background);

// The document as it is to be seen: font and colours over what it says. Links are text.
Document Dressed(Document document, const TextLook& look);
std::string DressedRtf(const Document& document, const TextLook& look); // of that, for the control
bool NamesOwnFonts(const Document& document); // nowhere asks for the reader's own
