#include "platform/windows/system/win_registry.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"
#include "platform/windows/system/win_locale.h"

#include <cstring>
#include <string>

namespace {

class RegistryKey {
  public:
    RegistryKey() = default;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey() {
        if (key_) RegCloseKey(key_);
    }
    HKEY Get() const { return key_; }

    LSTATUS Open(const std::wstring& path, REGSAM access) {
        return RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, access, &key_);
    }
    LSTATUS Create(const std::wstring& path, REGSAM access) {
        std::wstring keyClass = L"1";
        return RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, keyClass.data(),
                               REG_OPTION_NON_VOLATILE, access, nullptr, &key_, nullptr);
    }

  private:
    HKEY key_ = nullptr;
};

// The registry view of the other bitness: programs that look for this one may have either.
REGSAM OtherView() {
    BOOL isWow64 = FALSE; // a 32-bit program on a 64-bit system
    IsWow64Process(GetCurrentProcess(), &isWow64);
    return isWow64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
}

std::u16string WideData(const std::string& data) {
    std::u16string text(data.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), data.data(), text.size() * sizeof(char16_t));
    while (!text.empty() && text.back() == u'\0') // there may be none, one or many
        text.pop_back();
    return text;
}

std::u16string AnsiData(const std::string& data) {
    const auto codePage =
        static_cast<UINT>(WinLocale().AnsiCodePage()); // the process's own is UTF-8
    std::wstring text(data.size(), L'\0');             // never longer
    const int length = MultiByteToWideChar(codePage, 0, data.data(), static_cast<int>(data.size()),
                                           text.data(), static_cast<int>(text.size()));
    return FromWide(text.substr(0, static_cast<std::size_t>(length)));
}

std::u16string TextOf(DWORD type, const std::string& data) {
    switch (type) {
    case REG_NONE:
    case REG_SZ:
    case REG_LINK: return WideData(data);
    case REG_BINARY: return AnsiData(data);
    case REG_DWORD: {
        DWORD number = 0;
        if (data.size() != sizeof number) return {};
        std::memcpy(&number, data.data(), sizeof number);
        return FromWide(std::to_wstring(number));
    }
    default: return {};
    }
}

} // namespace

std::u16string WinRegistry::Read(const std::u16string& key, const std::u16string& name) const {
    RegistryKey opened;
    if (opened.Open(ToWide(key), KEY_QUERY_VALUE | OtherView()) != ERROR_SUCCESS) return {};
    const std::wstring valueName = ToWide(name);
    std::string data;
    LSTATUS status = ERROR_MORE_DATA;
    DWORD type = REG_NONE, size = 0;
    while (status == ERROR_MORE_DATA) { // the value may grow between the calls
        status = RegQueryValueExW(opened.Get(), valueName.c_str(), nullptr, &type, nullptr, &size);
        if (status != ERROR_SUCCESS) return {};
        data.resize(size);
        status = RegQueryValueExW(opened.Get(), valueName.c_str(), nullptr, &type,
                                  reinterpret_cast<BYTE*>(data.data()), &size);
    }
    if (status != ERROR_SUCCESS) return {};
    data.resize(size);
    return TextOf(type, data);
}

int WinRegistry::Write(const std::u16string& key, const std::u16string& name,
                       const std::u16string& text) {
    // An empty value reads like a missing one: do not create it.
    if (Read(key, name) == text) return ERROR_SUCCESS;
    const std::wstring path = ToWide(key), value = ToWide(text);
    LSTATUS status = RegistryKey().Create(path, KEY_ALL_ACCESS); // also in this program's own view
    if (status != ERROR_SUCCESS) return status;
    RegistryKey created;
    status = created.Create(path, KEY_ALL_ACCESS | OtherView());
    if (status != ERROR_SUCCESS) return status;
    const std::size_t size = (value.size() + 1) * sizeof(wchar_t); // with the NUL
    return RegSetValueExW(created.Get(), ToWide(name).c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.c_str()), static_cast<DWORD>(size));
}
