#include "platform/windows/text_pane/accessibility/object_provider.h"

#include "platform/windows/base/text.h"
#include "platform/windows/text_pane/accessibility/guarded_answer.h"
#include "view/reading_units.h"

#include <algorithm>

namespace {
// Known to us alone: tells our elements from others.
constexpr GUID ourObject = {
    0x8a6f1c52, 0x3d0e, 0x4b7a, {0xb1, 0x4c, 0x27, 0x90, 0xe5, 0x13, 0x6a, 0x0d}};

CONTROLTYPEID ControlTypeOf(ReadingObjectKind kind) {
    switch (kind) {
    case ReadingObjectKind::Heading: return uia::text;
    case ReadingObjectKind::Link: return uia::hyperlink;
    case ReadingObjectKind::Picture: return uia::image;
    case ReadingObjectKind::List: return uia::list;
    case ReadingObjectKind::ListItem: return uia::listItem;
    case ReadingObjectKind::Table: return uia::table;
    case ReadingObjectKind::Row: return uia::group;
    case ReadingObjectKind::Cell: return uia::dataItem;
    }
    return uia::text;
}

void Set(VARIANT* value, LONG number) {
    V_VT(value) = VT_I4;
    V_I4(value) = number;
}

void Set(VARIANT* value, bool truth) {
    V_VT(value) = VT_BOOL;
    V_BOOL(value) = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void Set(VARIANT* value, const std::u16string& text) {
    const std::wstring units = ToWide(text);
    V_VT(value) = VT_BSTR;
    V_BSTR(value) = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
}

std::size_t Sibling(const ReadingObjects& objects, std::size_t index, int step) {
    const auto siblings = ReadingChildren(objects, objects[index].parent);
    const auto at = std::ranges::find(siblings, index) - siblings.begin() + step;
    const bool exists = at >= 0 && at < std::ssize(siblings);
    return exists ? siblings[static_cast<std::size_t>(at)] : noReadingObject;
}

std::size_t Neighbour(const ReadingObjects& objects, std::size_t index,
                      NavigateDirection direction) {
    if (direction == NavigateDirection_NextSibling) return Sibling(objects, index, 1);
    if (direction == NavigateDirection_PreviousSibling) return Sibling(objects, index, -1);
    const auto children = ReadingChildren(objects, index);
    if (children.empty()) return noReadingObject;
    return direction == NavigateDirection_FirstChild ? children.front() : children.back();
}
} // namespace

ObjectProvider::ObjectProvider(TextProvider& root, ReadablePane& pane, std::size_t index)
    : root_(&root), index_(index), version_(pane.ObjectsVersion()),
      isLink_(pane.Objects()[index].kind == ReadingObjectKind::Link) {}

template <typename Answer>
HRESULT ObjectProvider::AnswerHere(Answer answer) const noexcept {
    return AnswerOf(root_->Pane(), [&](ReadablePane& pane) {
        return IsCurrent(pane) ? answer(pane) : uia::elementNotAvailable;
    });
}

ComPtr<ObjectProvider> ObjectProvider::From(IUnknown* element) {
    void* found = nullptr;
    if (!element || FAILED(element->QueryInterface(ourObject, &found))) return {};
    return Adopt(static_cast<ObjectProvider*>(found));
}

std::optional<TextSpan> ObjectProvider::SpanIn(const TextProvider& root) const {
    if (&root != root_.Get() || !root.Pane() || !IsCurrent(*root.Pane())) return std::nullopt;
    return root.Pane()->Objects()[index_].span;
}

HRESULT ObjectProvider::QueryInterface(REFIID id, void** found) noexcept {
    if (found && id == ourObject) {
        *found = this;
        AddRef();
        return S_OK;
    }
    if (!isLink_)
        return FindInterface<IRawElementProviderSimple, IRawElementProviderFragment>(this, id,
                                                                                     found);
    return FindInterface<IRawElementProviderSimple, IRawElementProviderFragment, IInvokeProvider>(
        this, id, found);
}

HRESULT ObjectProvider::get_ProviderOptions(ProviderOptions* options) noexcept {
    return root_->get_ProviderOptions(options);
}

HRESULT ObjectProvider::GetPatternProvider(PATTERNID id, IUnknown** found) noexcept {
    if (!found) return E_INVALIDARG;
    *found = nullptr;
    return AnswerHere([&](ReadablePane&) {
        if (id != uia::invokePattern || !isLink_) return S_OK;
        *found = static_cast<IInvokeProvider*>(this);
        AddRef();
        return S_OK;
    });
}

void ObjectProvider::GiveValue(ReadablePane& pane, PROPERTYID id, VARIANT* value) const {
    const ReadingObject& object = pane.Objects()[index_];
    switch (id) {
    case uia::controlType: Set(value, LONG(ControlTypeOf(object.kind))); break;
    case uia::name: Set(value, ReadingName(pane, object)); break;
    case uia::helpText: Set(value, object.address); break;
    case uia::headingLevel: Set(value, uia::noHeadingLevel + object.level); break;
    case uia::isControlElement:
    case uia::isContentElement: Set(value, true); break;
    case uia::isKeyboardFocusable: Set(value, isLink_); break;
    case uia::hasKeyboardFocus:
        Set(value, ::GetFocus() == root_->Window() && pane.FocusedObject() == index_);
        break;
    case uia::isOffscreen: Set(value, pane.ObjectRect(index_).width == 0); break;
    default: break;
    }
}

HRESULT ObjectProvider::GetPropertyValue(PROPERTYID id, VARIANT* value) noexcept {
    if (!value) return E_INVALIDARG;
    VariantInit(value);
    return AnswerHere([&](ReadablePane& pane) {
        GiveValue(pane, id, value);
        return S_OK;
    });
}

HRESULT ObjectProvider::get_HostRawElementProvider(IRawElementProviderSimple** host) noexcept {
    if (!host) return E_INVALIDARG;
    *host = nullptr; // it has no window
    return S_OK;
}

HRESULT ObjectProvider::Navigate(NavigateDirection direction,
                                 IRawElementProviderFragment** found) noexcept {
    if (!found) return E_INVALIDARG;
    *found = nullptr;
    return AnswerHere([&](ReadablePane& pane) {
        const ReadingObjects& objects = pane.Objects();
        const bool toParent = direction == NavigateDirection_Parent;
        const std::size_t next =
            toParent ? objects[index_].parent : Neighbour(objects, index_, direction);
        if (next != noReadingObject) {
            *found = new ObjectProvider(*root_.Get(), pane, next);
        } else if (toParent) {
            *found = root_.Get();
            (*found)->AddRef();
        }
        return S_OK;
    });
}

HRESULT ObjectProvider::GetRuntimeId(SAFEARRAY** id) noexcept {
    if (!id) return E_INVALIDARG;
    *id = nullptr;
    return AnswerHere([&](ReadablePane&) {
        *id = SafeArrayCreateVector(VT_I4, 0, 3);
        if (!*id) return E_OUTOFMEMORY;
        int numbers[] = {uia::appendRuntimeId, version_, static_cast<int>(index_)};
        for (LONG i = 0; i < 3; ++i)
            SafeArrayPutElement(*id, &i, &numbers[i]);
        return S_OK;
    });
}

HRESULT ObjectProvider::get_BoundingRectangle(UiaRect* box) noexcept {
    if (!box) return E_INVALIDARG;
    *box = {};
    return AnswerHere([&](ReadablePane& pane) {
        const Rect inside = pane.ObjectRect(index_);
        if (inside.width == 0) return S_OK;
        POINT corner = {inside.left, inside.top};
        ClientToScreen(root_->Window(), &corner);
        *box = {double(corner.x), double(corner.y), double(inside.width), double(inside.height)};
        return S_OK;
    });
}

HRESULT ObjectProvider::GetEmbeddedFragmentRoots(SAFEARRAY** roots) noexcept {
    if (!roots) return E_INVALIDARG;
    *roots = nullptr;
    return S_OK;
}

// What has the focus is the text; the place comes into view.
HRESULT ObjectProvider::SetFocus() noexcept {
    return AnswerHere([&](ReadablePane& pane) {
        pane.Reveal(pane.Objects()[index_].span.start);
        ::SetFocus(root_->Window());
        return S_OK;
    });
}

HRESULT ObjectProvider::get_FragmentRoot(IRawElementProviderFragmentRoot** root) noexcept {
    return root_->get_FragmentRoot(root);
}

HRESULT ObjectProvider::Invoke() noexcept {
    return AnswerHere([&](ReadablePane& pane) {
        pane.FollowObject(index_);
        return S_OK;
    });
}
