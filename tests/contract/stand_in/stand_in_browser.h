// The control of the stand-in: an OLE object, a browser and a source of events.
#pragma once

#include "tests/contract/stand_in/stand_in_document.h"

#include <exdisp.h>
#include <oleidl.h>

class StandInBrowser : public CObject {
  public:
    explicit StandInBrowser(StandIn&);
    ~StandInBrowser() override;

    Facet<IOleObject> object;
    Facet<IOleInPlaceObject> inPlace;
    Facet<IOleInPlaceActiveObject> active;
    Facet<IWebBrowser2> browser;
    Facet<IConnectionPointContainer> sources;
    Facet<IConnectionPoint> source;

    // For the tables of functions.
    void TakeSite(IOleClientSite*);
    HRESULT Activate();
    void MakeWindows(HWND parent);
    void Load(const std::wstring& address);
    bool Announce(const std::wstring& address, IDispatch* target, bool sends); // true: allowed
    void Fire(DISPID event, std::vector<VARIANT> arguments);                   // in their order
    IDispatch* Self() { return reinterpret_cast<IDispatch*>(&browser); }       // not counted
    void ReplaceDocument(IDispatch* counted);

    IOleClientSite* site = nullptr;
    IDispatch* sink = nullptr;
    IDispatch* document = nullptr;
    std::wstring url;
    bool isLoading = false;
    HWND outer = nullptr, inner = nullptr;
};

// The host's interface; null when it has none. Counted.
template <typename Interface>
Interface* AskHost(IOleClientSite* site, REFIID id) {
    void* found = nullptr;
    if (!site || FAILED(site->lpVtbl->QueryInterface(site, id, &found))) return nullptr;
    return static_cast<Interface*>(found);
}

VARIANT BoolVariant(bool);
VARIANT TextVariant(const std::wstring&);
VARIANT DispatchVariant(IDispatch*);
VARIANT CancelVariant(VARIANT_BOOL*);
