// How wide a block of a page is and where it stands beside its neighbours (CSS 2.1, 10.3 and 10.4).
#pragma once

#include "formats/css/css_style.h"
#include "view/page/float_context.h"

// Lengths in device pixels.
struct BoxEdges {
    InlineEdges border, content; // from the same left edge as the room asked for
    double marginLeft = 0, marginRight = 0;
    InlineEdges Margin() const { return {border.left - marginLeft, border.right + marginRight}; }
};

// What is above and below the content of a box.
struct BoxInsets {
    double borderTop = 0, paddingTop = 0, paddingBottom = 0, borderBottom = 0;
    double Top() const { return borderTop + paddingTop; }
    double Bottom() const { return paddingBottom + borderBottom; }
};

class BoxMeasure {
  public:
    explicit BoxMeasure(double scale) : scale_(scale) {} // device pixels of one of CSS

    double Scale() const { return scale_; }
    // A percentage is of `whole`, in device pixels; 0 for `auto`.
    double Length(const CssLength& length, double whole) const;
    double Margin(const CssBoxStyle& style, CssSide side, double containing) const {
        return Length(style.margin[side], containing);
    }
    BoxInsets Insets(const CssBoxStyle& style, double containing) const;
    // Borders and paddings on both sides, and the margins.
    double SideInsets(const CssBoxStyle& style, double containing) const;
    double InsetLeft(const CssBoxStyle& style, double containing) const {
        return style.borderWidth[cssLeft] * scale_ + Length(style.padding[cssLeft], containing);
    }
    double SideMargins(const CssBoxStyle& style, double containing) const;

    // The content's width as the style gives it, within its limits; negative for `auto` and for
    // what follows from the content.
    double GivenWidth(const CssBoxStyle& style, double containing) const;
    double LimitWidth(const CssBoxStyle& style, double containing, double width) const;
    // Likewise of the height, of which a percentage is `auto`.
    double GivenHeight(const CssBoxStyle& style) const;
    double LimitHeight(const CssBoxStyle& style, double height) const;
    // The content's height by `aspect-ratio`, within no limits of the style; 0 without one.
    double HeightByShape(const CssBoxStyle& style, double containing, double contentWidth) const;

    // By which a relative box is drawn away from its place.
    struct Shift {
        double x = 0, y = 0;
        bool IsNone() const { return x == 0 && y == 0; }
    };
    Shift RelativeShift(const CssBoxStyle& style, const CssInheritedStyle& around,
                        double containing) const;

    // A block in the flow: it fills the room, or has its width and stands at the start of the room,
    // or where its margins and `align` put it. `around` is the style of what it stands in.
    BoxEdges InFlow(const CssBoxStyle& style, const CssInheritedStyle& around,
                    InlineEdges room) const;
    // The same for one whose content has this width, such as a table or a picture.
    BoxEdges OfWidth(const CssBoxStyle& style, const CssInheritedStyle& around, InlineEdges room,
                     double contentWidth) const;

  private:
    double ContentSize(const CssLength& length, double whole, double insets,
                       const CssBoxStyle& style) const;

    double scale_;
};
