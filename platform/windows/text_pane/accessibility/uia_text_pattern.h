// The interfaces and numbers of UI Automation's text pattern, which MinGW-w64's headers of 2022
// lack; by the names of the Windows SDK's UIAutomationCore.h.
#pragma once

#include "platform/windows/base/win32.h"

#include <oaidl.h>

#include <uiautomationcore.h>

#ifndef __ITextRangeProvider_INTERFACE_DEFINED__
enum TextPatternRangeEndpoint {
    TextPatternRangeEndpoint_Start = 0,
    TextPatternRangeEndpoint_End = 1,
};

enum TextUnit {
    TextUnit_Character = 0,
    TextUnit_Format = 1,
    TextUnit_Word = 2,
    TextUnit_Line = 3,
    TextUnit_Paragraph = 4,
    TextUnit_Page = 5,
    TextUnit_Document = 6,
};

MIDL_INTERFACE("5347ad7b-c355-46f8-aff5-909033582f63")
ITextRangeProvider : public IUnknown {
  public:
    virtual HRESULT STDMETHODCALLTYPE Clone(ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE Compare(ITextRangeProvider*, BOOL*) = 0;
    virtual HRESULT STDMETHODCALLTYPE CompareEndpoints(
        TextPatternRangeEndpoint, ITextRangeProvider*, TextPatternRangeEndpoint, int*) = 0;
    virtual HRESULT STDMETHODCALLTYPE ExpandToEnclosingUnit(TextUnit) = 0;
    virtual HRESULT STDMETHODCALLTYPE FindAttribute(TEXTATTRIBUTEID, VARIANT, BOOL,
                                                    ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE FindText(BSTR, BOOL, BOOL, ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAttributeValue(TEXTATTRIBUTEID, VARIANT*) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetBoundingRectangles(SAFEARRAY**) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetEnclosingElement(IRawElementProviderSimple**) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetText(int, BSTR*) = 0;
    virtual HRESULT STDMETHODCALLTYPE Move(TextUnit, int, int*) = 0;
    virtual HRESULT STDMETHODCALLTYPE MoveEndpointByUnit(TextPatternRangeEndpoint, TextUnit, int,
                                                         int*) = 0;
    virtual HRESULT STDMETHODCALLTYPE MoveEndpointByRange(
        TextPatternRangeEndpoint, ITextRangeProvider*, TextPatternRangeEndpoint) = 0;
    virtual HRESULT STDMETHODCALLTYPE Select() = 0;
    virtual HRESULT STDMETHODCALLTYPE AddToSelection() = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveFromSelection() = 0;
    virtual HRESULT STDMETHODCALLTYPE ScrollIntoView(BOOL) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetChildren(SAFEARRAY**) = 0;
};
__CRT_UUID_DECL(ITextRangeProvider, 0x5347ad7b, 0xc355, 0x46f8, 0xaf, 0xf5, 0x90, 0x90, 0x33, 0x58,
                0x2f, 0x63)
#endif

#ifndef __ITextProvider_INTERFACE_DEFINED__
enum SupportedTextSelection {
    SupportedTextSelection_None = 0,
    SupportedTextSelection_Single = 1,
    SupportedTextSelection_Multiple = 2,
};

struct UiaPoint {
    double x, y;
};

MIDL_INTERFACE("3589c92c-63f3-4367-99bb-ada653b77cf2")
ITextProvider : public IUnknown {
  public:
    virtual HRESULT STDMETHODCALLTYPE GetSelection(SAFEARRAY**) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVisibleRanges(SAFEARRAY**) = 0;
    virtual HRESULT STDMETHODCALLTYPE RangeFromChild(IRawElementProviderSimple*,
                                                     ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE RangeFromPoint(UiaPoint, ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DocumentRange(ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SupportedTextSelection(SupportedTextSelection*) = 0;
};
__CRT_UUID_DECL(ITextProvider, 0x3589c92c, 0x63f3, 0x4367, 0x99, 0xbb, 0xad, 0xa6, 0x53, 0xb7, 0x7c,
                0xf2)
#endif

#ifndef __ITextProvider2_INTERFACE_DEFINED__
MIDL_INTERFACE("0dc5e6ed-3e16-4bf1-8f9a-a979878bc195")
ITextProvider2 : public ITextProvider {
  public:
    virtual HRESULT STDMETHODCALLTYPE RangeFromAnnotation(IRawElementProviderSimple*,
                                                          ITextRangeProvider**) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCaretRange(BOOL*, ITextRangeProvider**) = 0;
};
__CRT_UUID_DECL(ITextProvider2, 0x0dc5e6ed, 0x3e16, 0x4bf1, 0x8f, 0x9a, 0xa9, 0x79, 0x87, 0x8b,
                0xc1, 0x95)
#endif

#ifndef __IInvokeProvider_INTERFACE_DEFINED__
MIDL_INTERFACE("54fcb24b-e18e-47a2-b4d3-eccbe77599a2")
IInvokeProvider : public IUnknown {
  public:
    virtual HRESULT STDMETHODCALLTYPE Invoke() = 0;
};
__CRT_UUID_DECL(IInvokeProvider, 0x54fcb24b, 0xe18e, 0x47a2, 0xb4, 0xd3, 0xec, 0xcb, 0xe7, 0x75,
                0x99, 0xa2)
#endif

// The numbers are macros in some headers and constants in others.
namespace uia {
constexpr PATTERNID invokePattern = 10000, textPattern = 10014, textPattern2 = 10024;
constexpr EVENTID focusChanged = 20005, selectionChanged = 20014, textChanged = 20015;
constexpr PROPERTYID controlType = 30003, name = 30005, hasKeyboardFocus = 30008,
                     isKeyboardFocusable = 30009, helpText = 30013, isControlElement = 30016,
                     isContentElement = 30017, isOffscreen = 30022, valueIsReadOnly = 30046,
                     headingLevel = 30173;
constexpr CONTROLTYPEID hyperlink = 50005, image = 50006, listItem = 50007, list = 50008,
                        text = 50020, group = 50026, dataItem = 50029, document = 50030,
                        table = 50036;
constexpr LONG noHeadingLevel = 80050; // and level 1 to 9 after it
constexpr int appendRuntimeId = 3;     // what precedes the rest of an element's own
// Of texts.
constexpr TEXTATTRIBUTEID backgroundColor = 40001, fontName = 40005, fontSize = 40006,
                          fontWeight = 40007, foregroundColor = 40008,
                          horizontalTextAlignment = 40009, isHidden = 40013, isItalic = 40014,
                          isReadOnly = 40015, isSubscript = 40016, isSuperscript = 40017,
                          strikethroughStyle = 40026, textFlowDirections = 40028,
                          underlineStyle = 40030, styleId = 40034;
// Of paragraphs; after the first are those of headings, 1 to 9.
constexpr LONG headingStyle = 70000, normalStyle = 70012, bulletedListStyle = 70015,
               numberedListStyle = 70016;
constexpr HRESULT elementNotAvailable = static_cast<HRESULT>(0x80040201);
constexpr HRESULT invalidOperation = static_cast<HRESULT>(0x80131509);
constexpr LONG rootObject = -25;                   // in WM_GETOBJECT
constexpr int actionCompleted = 2, mostRecent = 3; // kind and processing of a notification
} // namespace uia
