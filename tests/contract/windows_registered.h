// A program that has taken over a scheme, or a kind of files, as its setup writes it down.
#pragma once

#include "platform/windows/base/text.h"
#include "platform/windows/base/wine.h"

class Registered {
  public:
    Registered(const std::wstring& name, const std::u16string& program)
        : key_(L"Software\\Classes\\" + name) {
        Set(L"\\shell\\open\\command", L"", L"\"" + ToWide(program) + L"\" \"%1\"");
    }
    ~Registered() { RegDeleteTreeW(root_, key_.c_str()); }
    Registered(const Registered&) = delete;
    Registered& operator=(const Registered&) = delete;

    void IsScheme() { Set(L"", L"URL Protocol", L""); }
    void IsKind(const std::wstring& name) { Set(L"", L"", name); }

  private:
    void Set(const std::wstring& below, const wchar_t* name, const std::wstring& text) {
        RegSetKeyValueW(root_, (key_ + below).c_str(), name, REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    // Wine's classes are those of the machine alone.
    const HKEY root_ = RunsUnderWine() ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    std::wstring key_;
};
