// Prints a text on pages, laid out for paper as for the screen.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"
#include "view/picture_store.h"
#include "view/print_flow.h"
#include "view/view_style.h"

class TextPane;

struct PrintedText {
    const TextSource& text;
    const Document& document; // its text may not be the one printed
    bool plain = true;
    ViewStyle style;
    SystemStyle system;
    std::u16string title;
    PageRanges pageRanges;
};

// As the pane shows it.
PrintedText PrintedTextOf(const TextPane& pane, const std::u16string& title,
                          const PageRanges& pageRanges);

// `lines` draws on the device's canvas.
PrintEnd PrintPages(const PrintedText& text, LineLayout& lines, PictureStore& pictures,
                    PrintDevice& device);

// The style on white paper: the reader's, but that nothing is white.
ViewStyle OnPaper(ViewStyle style);
