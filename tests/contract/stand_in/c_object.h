// COM objects of the stand-in. Their interfaces are tables of functions, filled where the stand-in
// has an answer: the object model's have hundreds that nobody calls.
#pragma once

#ifndef CINTERFACE
#error "A source of the stand-in is compiled with CINTERFACE."
#endif

#include "tests/contract/stand_in/stand_in.h"

#include <ole2.h>

#include <cstring>
#include <type_traits>
#include <utility>

// Calls of functions that the stand-in has no answer for.
inline int unansweredCalls = 0;

inline HRESULT STDMETHODCALLTYPE Unanswered() {
    ++unansweredCalls;
    return E_NOTIMPL;
}

class CObject {
  public:
    explicit CObject(StandIn& world) : world_(world) { ++world_.living; }
    virtual ~CObject() { --world_.living; }
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    StandIn& World() { return world_; }
    ULONG AddRef() { return ++count_; }
    ULONG Release() {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT Query(REFIID id, void** found) {
        *found = nullptr;
        if (world_.Fails()) return E_NOINTERFACE;
        for (const auto& [offered, facet] : offers_)
            if (IsEqualGUID(offered, id)) *found = facet;
        if (!*found) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

  protected:
    void Offer(REFIID id, void* facet) { offers_.emplace_back(id, facet); }

  private:
    StandIn& world_;
    ULONG count_ = 1;
    std::vector<std::pair<IID, void*>> offers_;
};

template <typename Interface>
using TableOf = std::remove_cv_t<std::remove_pointer_t<decltype(Interface::lpVtbl)>>;

// An interface of an object.
template <typename Interface>
struct Facet : Interface {
    CObject* object;

    Facet(CObject* owner, TableOf<Interface>& table) : Interface{&table}, object(owner) {}
};

template <typename Object, typename Interface>
Object& ObjectOf(Interface* self) {
    return *static_cast<Object*>(static_cast<Facet<Interface>*>(self)->object);
}

// A table with the functions that all have, and no answers yet.
template <typename Interface>
TableOf<Interface> EmptyTable() {
    TableOf<Interface> table;
    void (*const nothing)() = reinterpret_cast<void (*)()>(Unanswered);
    for (std::size_t slot = 0; slot < sizeof table; slot += sizeof nothing)
        std::memcpy(reinterpret_cast<char*>(&table) + slot, &nothing, sizeof nothing);
    table.QueryInterface = [](Interface* self, REFIID id, void** found) -> HRESULT {
        return ObjectOf<CObject>(self).Query(id, found);
    };
    table.AddRef = [](Interface* self) -> ULONG { return ObjectOf<CObject>(self).AddRef(); };
    table.Release = [](Interface* self) -> ULONG { return ObjectOf<CObject>(self).Release(); };
    return table;
}
