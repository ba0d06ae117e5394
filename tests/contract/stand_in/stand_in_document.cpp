// The document, its window and its selection.
#define CINTERFACE
#define INITGUID // not every library of ids knows the newer ones
#include "tests/contract/stand_in/stand_in_document.h"

#include <algorithm>

namespace {

class Document : public CObject {
  public:
    Document(StandIn& world, const StandInPage& page);

    StandInContent content;
    Facet<IHTMLDocument2> document;
    Facet<IHTMLDocument3> tree;
    Facet<IHTMLDocument5> modern;
};

// Lives no longer than its document, which the view keeps.
template <typename Interface>
class Part : public CObject {
  public:
    Part(StandIn& world, StandInContent& shared, TableOf<Interface>& table)
        : CObject(world), content(shared), facet(this, table) {
        Offer(IID_IUnknown, &facet);
    }
    StandInContent& content;
    Facet<Interface> facet;
};

class PageWindow2 : public CObject {
  public:
    PageWindow2(StandIn& world, StandInContent& shared);
    StandInContent& content;
    Facet<IHTMLWindow2> facet;
    Facet<IHTMLWindow7> modern;
};

using Selection = Part<IHTMLSelectionObject>;

TableOf<IHTMLWindow2>& WindowTable() {
    static TableOf<IHTMLWindow2> table = [] {
        auto made = EmptyTable<IHTMLWindow2>();
        made.scrollTo = [](IHTMLWindow2* self, long left, long top) -> HRESULT {
            PageWindow2& window = ObjectOf<PageWindow2>(self);
            const std::string call =
                "window.scrollTo " + std::to_string(left) + " " + std::to_string(top);
            return window.World().Answer(call, [&] {
                const int largest = window.content.MaxTop(window.World().ViewHeight());
                window.content.scrollTop = std::clamp(static_cast<int>(top), 0, largest);
                window.content.scrollLeft = std::max(static_cast<int>(left), 0);
            });
        };
        return made;
    }();
    return table;
}

TableOf<IHTMLWindow7>& ModernWindowTable() {
    static TableOf<IHTMLWindow7> table = [] {
        auto made = EmptyTable<IHTMLWindow7>();
        made.getComputedStyle = [](IHTMLWindow7* self, IHTMLDOMNode* node, BSTR,
                                   IHTMLCSSStyleDeclaration** style) -> HRESULT {
            return ObjectOf<PageWindow2>(self).World().Count(
                [&] { *style = MakeComputedStyle(node); });
        };
        return made;
    }();
    return table;
}

PageWindow2::PageWindow2(StandIn& world, StandInContent& shared)
    : CObject(world), content(shared), facet(this, WindowTable()),
      modern(this, ModernWindowTable()) {
    Offer(IID_IUnknown, &facet);
    Offer(IID_IHTMLWindow2, &facet);
    Offer(IID_IHTMLWindow7, &modern);
}

TableOf<IHTMLSelectionObject>& SelectionTable() {
    static TableOf<IHTMLSelectionObject> table = [] {
        auto made = EmptyTable<IHTMLSelectionObject>();
        made.createRange = [](IHTMLSelectionObject* self, IDispatch** range) -> HRESULT {
            Selection& selection = ObjectOf<Selection>(self);
            StandInContent& content = selection.content;
            return selection.World().Answer("selection.createRange", [&] {
                *range = reinterpret_cast<IDispatch*>(MakeRange(
                    selection.World(), content, content.selectionStart, content.selectionEnd));
            });
        };
        return made;
    }();
    return table;
}

Document& Of(IHTMLDocument2* self) {
    return ObjectOf<Document>(self);
}

TableOf<IHTMLDocument2>& DocumentTable() {
    static TableOf<IHTMLDocument2> table = [] {
        auto made = EmptyTable<IHTMLDocument2>();
        made.get_body = [](IHTMLDocument2* self, IHTMLElement** body) -> HRESULT {
            Document& document = Of(self);
            return document.World().Answer("document.body", [&] {
                *body = MakeElement(document.World(), document.content, true);
            });
        };
        made.get_title = [](IHTMLDocument2* self, BSTR* title) -> HRESULT {
            return Of(self).World().Answer("document.title", [&] {
                *title = SysAllocString(Of(self).content.page.title.c_str());
            });
        };
        made.get_charset = [](IHTMLDocument2* self, BSTR* charset) -> HRESULT {
            return Of(self).World().Answer("document.charset", [&] {
                *charset = SysAllocString(Of(self).content.page.charset.c_str());
            });
        };
        made.get_parentWindow = [](IHTMLDocument2* self, IHTMLWindow2** window) -> HRESULT {
            Document& document = Of(self);
            return document.World().Count(
                [&] { *window = &(new PageWindow2(document.World(), document.content))->facet; });
        };
        made.get_selection = [](IHTMLDocument2* self, IHTMLSelectionObject** selection) -> HRESULT {
            Document& document = Of(self);
            return document.World().Answer("document.selection", [&] {
                *selection =
                    &(new Selection(document.World(), document.content, SelectionTable()))->facet;
            });
        };
        return made;
    }();
    return table;
}

TableOf<IHTMLDocument3>& TreeTable() {
    static TableOf<IHTMLDocument3> table = [] {
        auto made = EmptyTable<IHTMLDocument3>();
        made.get_documentElement = [](IHTMLDocument3* self, IHTMLElement** root) -> HRESULT {
            Document& document = ObjectOf<Document>(self);
            return document.World().Count(
                [&] { *root = MakeElement(document.World(), document.content, false); });
        };
        return made;
    }();
    return table;
}

TableOf<IHTMLDocument5>& ModernTable() {
    static TableOf<IHTMLDocument5> table = [] {
        auto made = EmptyTable<IHTMLDocument5>();
        made.get_compatMode = [](IHTMLDocument5* self, BSTR* mode) -> HRESULT {
            Document& document = ObjectOf<Document>(self);
            const bool standards = document.content.page.followsStandards;
            return document.World().Count(
                [&] { *mode = SysAllocString(standards ? L"CSS1Compat" : L"BackCompat"); });
        };
        return made;
    }();
    return table;
}

Document::Document(StandIn& world, const StandInPage& page)
    : CObject(world), content{world, page}, document(this, DocumentTable()),
      tree(this, TreeTable()), modern(this, ModernTable()) {
    Offer(IID_IUnknown, &document);
    Offer(IID_IDispatch, &document);
    Offer(IID_IHTMLDocument2, &document);
    Offer(IID_IHTMLDocument3, &tree);
    Offer(IID_IHTMLDocument5, &modern);
}

} // namespace

IDispatch* MakeDocument(StandIn& world, const StandInPage& page) {
    return reinterpret_cast<IDispatch*>(&(new Document(world, page))->document);
}
