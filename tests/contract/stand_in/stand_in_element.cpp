// The body and the root element, and their styles.
#define CINTERFACE
#include "tests/contract/stand_in/stand_in_document.h"

namespace {

class Style : public CObject {
  public:
    explicit Style(StandIn& world);
    Facet<IHTMLStyle> style;
    Facet<IHTMLCurrentStyle> current;
};

TableOf<IHTMLStyle>& StyleTable() {
    static TableOf<IHTMLStyle> table = [] {
        auto made = EmptyTable<IHTMLStyle>();
        made.put_backgroundColor = [](IHTMLStyle* self, VARIANT color) -> HRESULT {
            StandIn& world = ObjectOf<Style>(self).World();
            return world.Answer("style.backgroundColor " + Narrow(V_BSTR(&color)),
                                [&] { world.backColor = V_BSTR(&color); });
        };
        made.put_color = [](IHTMLStyle* self, VARIANT color) -> HRESULT {
            StandIn& world = ObjectOf<Style>(self).World();
            return world.Answer("style.color " + Narrow(V_BSTR(&color)),
                                [&] { world.letterColor = V_BSTR(&color); });
        };
        made.get_color = [](IHTMLStyle* self, VARIANT* color) -> HRESULT {
            StandIn& world = ObjectOf<Style>(self).World();
            return world.Count([&] {
                V_VT(color) = VT_BSTR;
                V_BSTR(color) = SysAllocString(world.letterColor.c_str());
            });
        };
        return made;
    }();
    return table;
}

TableOf<IHTMLCurrentStyle>& CurrentStyleTable() {
    static TableOf<IHTMLCurrentStyle> table = [] {
        auto made = EmptyTable<IHTMLCurrentStyle>();
        made.get_marginTop = [](IHTMLCurrentStyle* self, VARIANT* margin) -> HRESULT {
            return ObjectOf<Style>(self).World().Count([&] {
                V_VT(margin) = VT_BSTR;
                V_BSTR(margin) = SysAllocString((std::to_wstring(StandIn::Margin) + L"px").c_str());
            });
        };
        return made;
    }();
    return table;
}

Style::Style(StandIn& world)
    : CObject(world), style(this, StyleTable()), current(this, CurrentStyleTable()) {
    Offer(IID_IUnknown, &style);
}

class Element : public CObject {
  public:
    Element(StandIn& world, StandInContent& shared, bool givenIsBody);

    StandInContent& content;
    bool isBody, scrolls;
    Facet<IHTMLElement> element;
    Facet<IHTMLElement2> layout;
    Facet<IHTMLBodyElement> body;
    Facet<IHTMLDOMNode> node;
};

class ComputedStyle : public CObject {
  public:
    ComputedStyle(StandIn& world, const Element& element);
    std::wstring letters, paper;
    Facet<IHTMLCSSStyleDeclaration> style;
};

HRESULT Tell(IHTMLCSSStyleDeclaration* self, std::wstring ComputedStyle::*part, VARIANT* text) {
    ComputedStyle& computed = ObjectOf<ComputedStyle>(self);
    return computed.World().Count([&] {
        V_VT(text) = VT_BSTR;
        V_BSTR(text) = SysAllocString((computed.*part).c_str());
    });
}

TableOf<IHTMLCSSStyleDeclaration>& ComputedStyleTable() {
    static TableOf<IHTMLCSSStyleDeclaration> table = [] {
        auto made = EmptyTable<IHTMLCSSStyleDeclaration>();
        made.get_color = [](IHTMLCSSStyleDeclaration* self, VARIANT* color) -> HRESULT {
            return Tell(self, &ComputedStyle::letters, color);
        };
        made.get_backgroundColor = [](IHTMLCSSStyleDeclaration* self, VARIANT* color) -> HRESULT {
            return Tell(self, &ComputedStyle::paper, color);
        };
        return made;
    }();
    return table;
}

ComputedStyle::ComputedStyle(StandIn& world, const Element& element)
    : CObject(world), letters(element.content.page.letters),
      paper(element.isBody ? element.content.page.paper : element.content.page.rootPaper),
      style(this, ComputedStyleTable()) {
    Offer(IID_IUnknown, &style);
}

TableOf<IHTMLDOMNode>& NodeTable() {
    static TableOf<IHTMLDOMNode> table = EmptyTable<IHTMLDOMNode>();
    return table;
}

TableOf<IHTMLElement>& ElementTable() {
    static TableOf<IHTMLElement> table = [] {
        auto made = EmptyTable<IHTMLElement>();
        made.get_style = [](IHTMLElement* self, IHTMLStyle** style) -> HRESULT {
            StandIn& world = ObjectOf<Element>(self).World();
            return world.Count([&] { *style = &(new Style(world))->style; });
        };
        return made;
    }();
    return table;
}

// An element that the page does not scroll by answers 0.
HRESULT Scrolled(IHTMLElement2* self, const char* call, int StandInContent::*offset, long* answer) {
    Element& element = ObjectOf<Element>(self);
    return element.World().Answer(call,
                                  [&] { *answer = element.scrolls ? element.content.*offset : 0; });
}

TableOf<IHTMLElement2>& LayoutTable() {
    static TableOf<IHTMLElement2> table = [] {
        auto made = EmptyTable<IHTMLElement2>();
        made.get_scrollTop = [](IHTMLElement2* self, long* top) -> HRESULT {
            return Scrolled(self, "scrollTop", &StandInContent::scrollTop, top);
        };
        made.get_scrollLeft = [](IHTMLElement2* self, long* left) -> HRESULT {
            return Scrolled(self, "scrollLeft", &StandInContent::scrollLeft, left);
        };
        made.get_clientTop = [](IHTMLElement2* self, long* border) -> HRESULT {
            return ObjectOf<Element>(self).World().Count([&] { *border = StandIn::Border; });
        };
        made.get_clientHeight = [](IHTMLElement2* self, long* height) -> HRESULT {
            StandIn& world = ObjectOf<Element>(self).World();
            return world.Answer("clientHeight", [&] { *height = world.ViewHeight(); });
        };
        made.get_currentStyle = [](IHTMLElement2* self, IHTMLCurrentStyle** style) -> HRESULT {
            StandIn& world = ObjectOf<Element>(self).World();
            return world.Count([&] { *style = &(new Style(world))->current; });
        };
        return made;
    }();
    return table;
}

TableOf<IHTMLBodyElement>& BodyTable() {
    static TableOf<IHTMLBodyElement> table = [] {
        auto made = EmptyTable<IHTMLBodyElement>();
        made.createTextRange = [](IHTMLBodyElement* self, IHTMLTxtRange** range) -> HRESULT {
            Element& body = ObjectOf<Element>(self);
            return body.World().Answer("body.createTextRange", [&] {
                *range = MakeRange(body.World(), body.content, 0, body.content.Length());
            });
        };
        // By the standards the attribute is empty unless the page has it.
        made.get_topMargin = [](IHTMLBodyElement* self, VARIANT* margin) -> HRESULT {
            Element& body = ObjectOf<Element>(self);
            return body.World().Count([&] {
                V_VT(margin) = VT_BSTR;
                const std::wstring text = std::to_wstring(StandIn::Margin);
                V_BSTR(margin) =
                    SysAllocString(body.content.page.followsStandards ? L"" : text.c_str());
            });
        };
        return made;
    }();
    return table;
}

Element::Element(StandIn& world, StandInContent& shared, bool givenIsBody)
    : CObject(world), content(shared), isBody(givenIsBody),
      scrolls(shared.page.followsStandards != isBody), element(this, ElementTable()),
      layout(this, LayoutTable()), body(this, BodyTable()), node(this, NodeTable()) {
    Offer(IID_IUnknown, &element);
    Offer(IID_IDispatch, &element);
    Offer(IID_IHTMLElement, &element);
    Offer(IID_IHTMLElement2, &layout);
    Offer(IID_IHTMLDOMNode, &node);
    if (isBody && shared.page.hasBody) Offer(IID_IHTMLBodyElement, &body);
}

} // namespace

IHTMLCSSStyleDeclaration* MakeComputedStyle(IHTMLDOMNode* node) {
    const Element& element = ObjectOf<Element>(node);
    return &(new ComputedStyle(ObjectOf<Element>(node).World(), element))->style;
}

IHTMLElement* MakeElement(StandIn& world, StandInContent& content, bool isBody) {
    return &(new Element(world, content, isBody))->element;
}
