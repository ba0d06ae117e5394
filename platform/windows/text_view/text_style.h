// The reader's style of a text, and the control's formats for it.
#pragma once

#include "formats/document.h"
#include "view/view_style.h"
#include "platform/windows/base/win32.h"

#include <richedit.h>

#include <optional>
#include <string>

// What a view's font comes to where it names no face, or no size or an absurd one.
std::u16string FaceName(const ViewFont& font);
double PointSize(const ViewFont& font);

CHARFORMAT2W FontFormat(const ViewFont& font);
// For text without colours of its own.
CHARFORMAT2W ColorFormat(const ViewStyle& style);

// The automatic text colour on this background: none for the system's, else black or white where
// the system's lacks contrast.
std::optional<Color> ReadableAutoColor(Color background);

// The document with the reader's font and colours over its own. Links become plain text.
Document WithStyle(Document document, const ViewStyle& style);
std::string StyledRtf(const Document& document, const ViewStyle& style); // as RTF for the control
bool NamesOwnFonts(const Document& document); // no run is in the reader's default font
