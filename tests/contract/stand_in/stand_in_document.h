// The document of the stand-in, and what hangs on it.
#pragma once

#include "tests/contract/stand_in/c_object.h"

#include <mshtml.h>

// What the document, its body and its ranges share.
struct StandInContent {
    const StandIn& world;
    StandInPage page;
    int scrollLeft = 0, scrollTop = 0;
    int selectionStart = 0, selectionEnd = 0;

    int Length() const { return static_cast<int>(page.text.size()); }
    int LineFromChar(int position) const;
    int LineStart(int line) const;
    int TopOf(int position) const; // from the page's top edge
    int LeftOf(int position) const;
    int At(int left, int top) const; // the character there
    int MaxTop(int viewHeight) const;
};

IDispatch* MakeDocument(StandIn&, const StandInPage&);
IHTMLTxtRange* MakeRange(StandIn&, StandInContent&, int start, int end);
IHTMLCSSStyleDeclaration* MakeComputedStyle(IHTMLDOMNode*);
IHTMLElement* MakeElement(StandIn&, StandInContent&, bool isBody); // the body, or the root
