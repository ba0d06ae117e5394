#include "platform/windows/text_pane/accessibility/uia_library.h"

#include "platform/windows/base/system_library.h"

namespace {
UiaLibrary Load() {
    const HMODULE library = LoadSystemLibrary(L"uiautomationcore.dll");
    UiaLibrary uia;
    FindFunction(library, "UiaReturnRawElementProvider", uia.ReturnProvider);
    FindFunction(library, "UiaHostProviderFromHwnd", uia.HostProvider);
    FindFunction(library, "UiaDisconnectProvider", uia.Disconnect);
    FindFunction(library, "UiaClientsAreListening", uia.ClientsAreListening);
    FindFunction(library, "UiaRaiseAutomationEvent", uia.RaiseEvent);
    FindFunction(library, "UiaRaiseNotificationEvent", uia.RaiseNotification);
    FindFunction(library, "UiaGetReservedMixedAttributeValue", uia.MixedValue);
    FindFunction(library, "UiaGetReservedNotSupportedValue", uia.NotSupportedValue);
    return uia;
}
} // namespace

const UiaLibrary& UiaLibrary::Get() {
    static const UiaLibrary loaded = Load();
    return loaded;
}
