// Owners of a BSTR and a VARIANT. Not comutil.h's: _bstr_t and _variant_t throw
// _com_error, which is no std::exception, end a text at its first NUL, and need comsuppw.lib with
// MSVC.
#pragma once

#include "platform/windows/base/win32.h"

#include <oleauto.h>

#include <string>
#include <string_view>

class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    BSTR Get() const { return text_; }
    BSTR* Put() { // for one use
        return &text_;
    }
    std::wstring_view View() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }

  private:
    BSTR text_ = nullptr; // null stands for ""
};

class Variant {
  public:
    Variant() { VariantInit(&value_); }
    explicit Variant(LONG number) : Variant() {
        V_VT(&value_) = VT_I4;
        V_I4(&value_) = number;
    }
    explicit Variant(std::wstring_view text) : Variant() {
        V_VT(&value_) = VT_BSTR;
        V_BSTR(&value_) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    ~Variant() { VariantClear(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    const VARIANT& Get() const { return value_; }
    VARIANT* Put() { return &value_; }

  private:
    VARIANT value_;
};

// The text of a variant that holds one, also by reference; else "".
inline std::wstring TextOf(const VARIANT* value) {
    while (value && V_VT(value) == (VT_BYREF | VT_VARIANT))
        value = V_VARIANTREF(value);
    if (!value) return {};
    BSTR text = nullptr;
    if (V_VT(value) == VT_BSTR) text = V_BSTR(value);
    if (V_VT(value) == (VT_BYREF | VT_BSTR)) text = *V_BSTRREF(value);
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}
