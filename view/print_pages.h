// Prints a text on pages: its title at their heads, their numbers at their feet. Only one page is
// laid out at a time, so that a text of any length takes the memory of one.
#pragma once

#include "common/text_source.h"
#include "formats/document.h"
#include "platform/line_layout.h"
#include "view/picture_store.h"
#include "view/view_style.h"

#include <functional>
#include <string>

// What pages are drawn on. Lengths are pixels of the device.
class PrintDevice {
  public:
    virtual ~PrintDevice() = default;
    virtual double Dpi() const = 0;
    virtual Size Page() const = 0;        // within the margins; of all pages
    virtual Canvas* BeginPage() = 0;      // null when the device fails
    virtual void ClipTo(const Rect&) = 0; // what is drawn on this page from now on
    virtual bool EndPage() = 0;
    // Asked before each page, also one that is left out; false ends the job.
    virtual bool GoesOn(int percent) = 0;
};

struct PrintedText {
    const TextSource& text;
    const Document& document; // its text may not be the one printed
    bool plain = true;
    ViewStyle style;
    SystemStyle system;
    std::u16string title;
    std::function<bool(int page)> isWanted; // by its number, from 1
    int lastWanted = 0x7FFFFFFF;
};

enum class PrintEnd { Done, GivenUp, Failed };

// `lines` draws on the device's canvas.
PrintEnd PrintPages(const PrintedText& text, LineLayout& lines, PictureStore& pictures,
                    PrintDevice& device);

// The style on white paper: the reader's, but that nothing is white.
ViewStyle OnPaper(ViewStyle style);
