// How the lines of a page's text are aligned.
#pragma once

#include "formats/css/css_page_styles.h"
#include "platform/line_layout.h"

Alignment AlignmentOf(const CssInheritedStyle& style);
