// Rich text (RTF 1.9.1) into a document. Never fails: of broken or hostile input it keeps what it
// could read.
#pragma once

#include "formats/document.h"

#include <string_view>

// Whether the bytes begin as RTF does: "{\rtf", after a UTF-8 byte-order mark and white space, in
// any case.
bool LooksLikeRtf(std::string_view bytes);

// `systemCodePage` is for text of a file that names no code page. Limits: see rtf_limits.h.
Document ReadRtf(std::string_view bytes, int systemCodePage);
