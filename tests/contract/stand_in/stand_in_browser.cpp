// The control's functions.
#define CINTERFACE
#include "tests/contract/stand_in/stand_in_browser.h"

#include <docobj.h>

namespace {

template <typename Interface>
StandInBrowser& Of(Interface* self) {
    return ObjectOf<StandInBrowser>(self);
}

TableOf<IOleObject>& ObjectTable() {
    static TableOf<IOleObject> table = [] {
        auto made = EmptyTable<IOleObject>();
        made.SetClientSite = [](IOleObject* self, IOleClientSite* site) -> HRESULT {
            if (!site) {
                Of(self).TakeSite(nullptr);
                return S_OK;
            }
            return Of(self).World().Answer("object.SetClientSite",
                                           [&] { Of(self).TakeSite(site); });
        };
        made.DoVerb = [](IOleObject* self, LONG verb, MSG*, IOleClientSite*, LONG, HWND,
                         const RECT*) -> HRESULT {
            HRESULT result = S_OK;
            const HRESULT counted =
                Of(self).World().Answer("object.DoVerb " + std::to_string(verb), [&] {
                    if (verb == OLEIVERB_INPLACEACTIVATE) result = Of(self).Activate();
                });
            return FAILED(counted) ? counted : result;
        };
        made.Close = [](IOleObject* self, DWORD) -> HRESULT {
            return Of(self).World().Answer("object.Close", [&] {
                if (Of(self).outer) DestroyWindow(Of(self).outer);
                Of(self).outer = Of(self).inner = nullptr;
            });
        };
        return made;
    }();
    return table;
}

TableOf<IOleInPlaceObject>& InPlaceTable() {
    static TableOf<IOleInPlaceObject> table = [] {
        auto made = EmptyTable<IOleInPlaceObject>();
        made.SetObjectRects = [](IOleInPlaceObject* self, const RECT* place,
                                 const RECT*) -> HRESULT {
            StandIn& world = Of(self).World();
            return world.Answer("object.SetObjectRects", [&] {
                world.windowHeight = place->bottom - place->top;
                world.textTop += world.pushedByLayout;
            });
        };
        return made;
    }();
    return table;
}

TableOf<IOleInPlaceActiveObject>& ActiveTable() {
    static TableOf<IOleInPlaceActiveObject> table = [] {
        auto made = EmptyTable<IOleInPlaceActiveObject>();
        made.TranslateAccelerator = [](IOleInPlaceActiveObject* self, MSG* message) -> HRESULT {
            StandIn& world = Of(self).World();
            return world.Answer("object.TranslateAccelerator " + std::to_string(message->wParam),
                                [&] { world.lastKey = *message; });
        };
        return made;
    }();
    return table;
}

void AddBars(TableOf<IWebBrowser2>& table) {
    const auto refuse = [](IWebBrowser2*, VARIANT_BOOL) -> HRESULT { return E_FAIL; };
    table.put_AddressBar = refuse; // as a control without a frame may
    table.put_MenuBar = refuse;
    table.put_StatusBar = refuse;
    table.put_ToolBar = [](IWebBrowser2*, int) -> HRESULT { return E_FAIL; };
    table.put_Silent = [](IWebBrowser2* self, VARIANT_BOOL silent) -> HRESULT {
        StandIn& world = Of(self).World();
        return world.Answer("browser.Silent", [&] { world.silent = silent != VARIANT_FALSE; });
    };
    table.put_RegisterAsDropTarget = [](IWebBrowser2* self, VARIANT_BOOL takes) -> HRESULT {
        StandIn& world = Of(self).World();
        return world.Answer("browser.RegisterAsDropTarget",
                            [&] { world.takesDrops = takes != VARIANT_FALSE; });
    };
}

TableOf<IWebBrowser2>& BrowserTable() {
    static TableOf<IWebBrowser2> table = [] {
        auto made = EmptyTable<IWebBrowser2>();
        AddBars(made);
        made.Navigate2 = [](IWebBrowser2* self, VARIANT* url, VARIANT* flags, VARIANT*, VARIANT*,
                            VARIANT*) -> HRESULT {
            const std::wstring address = V_BSTR(url);
            return Of(self).World().Answer("browser.Navigate2 " + Narrow(address) + " flags " +
                                               std::to_string(V_I4(flags)),
                                           [&] { Of(self).Load(address); });
        };
        made.get_Document = [](IWebBrowser2* self, IDispatch** document) -> HRESULT {
            return Of(self).World().Answer("browser.Document", [&] {
                *document = Of(self).document;
                if (*document) (*document)->lpVtbl->AddRef(*document);
            });
        };
        made.ExecWB = [](IWebBrowser2* self, OLECMDID command, OLECMDEXECOPT, VARIANT* in,
                         VARIANT*) -> HRESULT {
            StandIn& world = Of(self).World();
            const long argument = in ? V_I4(in) : 0;
            return world.Answer(
                "browser.ExecWB " + std::to_string(command) + " " + std::to_string(argument), [&] {
                    if (command != OLECMDID_OPTICAL_ZOOM) return;
                    world.zoom = static_cast<int>(argument);
                    world.textTop += world.pushedByLayout;
                });
        };
        return made;
    }();
    return table;
}

TableOf<IConnectionPointContainer>& SourcesTable() {
    static TableOf<IConnectionPointContainer> table = [] {
        auto made = EmptyTable<IConnectionPointContainer>();
        made.FindConnectionPoint = [](IConnectionPointContainer* self, REFIID id,
                                      IConnectionPoint** point) -> HRESULT {
            if (!IsEqualGUID(id, DIID_DWebBrowserEvents2)) return E_NOINTERFACE;
            return Of(self).World().Answer("events.FindConnectionPoint", [&] {
                *point = &Of(self).source;
                Of(self).AddRef();
            });
        };
        return made;
    }();
    return table;
}

TableOf<IConnectionPoint>& SourceTable() {
    static TableOf<IConnectionPoint> table = [] {
        auto made = EmptyTable<IConnectionPoint>();
        made.Advise = [](IConnectionPoint* self, IUnknown* sink, DWORD* cookie) -> HRESULT {
            HRESULT result = S_OK;
            const HRESULT counted = Of(self).World().Answer("events.Advise", [&] {
                void* events = nullptr;
                result = sink->lpVtbl->QueryInterface(sink, DIID_DWebBrowserEvents2, &events);
                Of(self).sink = static_cast<IDispatch*>(events);
                *cookie = 7;
            });
            return FAILED(counted) ? counted : result;
        };
        made.Unadvise = [](IConnectionPoint* self, DWORD cookie) -> HRESULT {
            IDispatch*& sink = Of(self).sink;
            if (cookie != 7 || !sink) return E_INVALIDARG;
            sink->lpVtbl->Release(sink);
            sink = nullptr;
            return S_OK;
        };
        return made;
    }();
    return table;
}

} // namespace

StandInBrowser::StandInBrowser(StandIn& world)
    : CObject(world), object(this, ObjectTable()), inPlace(this, InPlaceTable()),
      active(this, ActiveTable()), browser(this, BrowserTable()), sources(this, SourcesTable()),
      source(this, SourceTable()) {
    world.browser = this;
    Offer(IID_IUnknown, &object);
    Offer(IID_IDispatch, &browser);
    Offer(IID_IOleObject, &object);
    Offer(IID_IOleInPlaceObject, &inPlace);
    Offer(IID_IOleInPlaceActiveObject, &active);
    Offer(IID_IWebBrowser2, &browser);
    Offer(IID_IConnectionPointContainer, &sources);
}

StandInBrowser::~StandInBrowser() {
    ReplaceDocument(nullptr);
    if (sink) sink->lpVtbl->Release(sink);
    if (outer) DestroyWindow(outer); // after a failed Close
    World().browser = nullptr;
}
