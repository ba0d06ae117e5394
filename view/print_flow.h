// Prints what stands one below the other on pages: a title at their heads, their numbers at their
// feet. Only what a page needs is asked for, so that a book of any length takes the memory of one.
#pragma once

#include "platform/line_layout.h"
#include "view/geometry.h"

#include <functional>
#include <memory>
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
    // Called before each page, also one that is left out; false cancels the job.
    virtual bool OnProgress(int percent) = 0;
};

struct PageRanges {
    std::function<bool(int page)> contains; // by its number, from 1; none: all
    int last = 0x7FFFFFFF;
};

enum class PrintEnd { Done, GivenUp, Failed };

// A stretch of what is printed. Heights are pixels from its top.
class PrintedBlock {
  public:
    virtual ~PrintedBlock() = default;
    virtual int Height() const = 0;
    virtual int Percent() const = 0; // how far along it begins
    // Whether a page begins with it, or ends after it.
    virtual bool BeginsPage() const { return false; }
    virtual bool EndsPage() const { return false; }
    virtual bool StaysWithNext() const { return false; } // a page does not end after it
    // The lowest place at or above `limit` where nothing is cut that fits a page; `from` for none.
    virtual int CutAbove(int from, int limit, int pageHeight) const = 0;
    // Where a page begins that is to begin at `from` or later: after the empty space there; the
    // height when nothing follows.
    virtual int StartOfPage(int from) const { return from; }
    // What stands once more at the top of a page that begins there, such as the head of a table:
    // a stretch of the block, empty for nothing.
    struct Stretch {
        int top = 0, bottom = 0;
        int Height() const { return bottom - top; }
    };
    virtual Stretch RepeatedAt(int /*from*/) const { return {}; }
    // On a page that is clipped to this.
    virtual void Paint(Canvas&, Point origin, const Rect& clip) const = 0;
};

// The next one, null after the last.
using NextPrintedBlock = std::function<std::shared_ptr<const PrintedBlock>()>;

// What stands at the head and at the foot of all pages.
class PrintFrame {
  public:
    // `lines` draws on the device's canvas.
    PrintFrame(std::u16string title, const TextStyle& style, LineLayout& lines,
               PrintDevice& device);

    Rect Room() const; // what is left of a page
    void Draw(Canvas& canvas, int number) const;

  private:
    void DrawCentred(Canvas& canvas, const std::u16string& text, int top) const;
    int LineHeight() const;

    std::u16string title_;
    LineLayout& lines_;
    PrintDevice& device_;
    StyleHandle style_;
    FontMetrics metrics_;
};

PrintEnd PrintFlow(const NextPrintedBlock& next, const PrintFrame& frame,
                   const PageRanges& pageRanges, PrintDevice& device);
