// Lines of a paragraph that one QTextLayout can lay out: it places text after a tab correctly only
// in its first line, so that each further line with a tab starts a segment.
#pragma once

#include "platform/line_layout.h"

#include <QColor>
#include <QFont>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <vector>

// Of a tab.
struct SegmentLeader {
    TextPos at = 0; // in the paragraph
    int indent = 0; // of its line
    char16_t character = 0;
    QFont font; // in pixels
    std::optional<QColor> color;
};

struct LayoutSegment {
    TextPos start = 0, end = 0;        // in the paragraph; the layout's text may reach further
    std::unique_ptr<QTextLayout> text; // lines after `metrics` are not to be used
    std::vector<QFont> fonts;          // pinned for the text
    std::vector<TextLine> metrics;     // of its lines; positions are of the paragraph
    std::vector<SegmentLeader> leaders;
    bool isUnidirectional = false; // all text has the paragraph's direction
};
