#include "platform/none/none_ports.h"

namespace {
const char16_t* const months[] = {u"January",   u"February", u"March",    u"April",
                                  u"May",       u"June",     u"July",     u"August",
                                  u"September", u"October",  u"November", u"December"};
const char16_t* const days[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                u"Thursday", u"Friday", u"Saturday"};

std::u16string NameOf(const std::u16string& name, NameLength length) {
    return length == NameLength::Long ? name : name.substr(0, 3);
}
} // namespace

std::u16string NoneLocale::MonthName(int month, NameLength length) const {
    return NameOf(months[month - 1], length);
}

std::u16string NoneLocale::DayName(int weekday, NameLength length) const {
    return NameOf(days[weekday - 1], length);
}

Ports MakeNonePorts() {
    Ports ports;
    ports.launch = {
        u"/app", u"Norvaset", u"/home/reader/.local/share/Norvaset", u"/share/norvaset", u"",
        u"/",    u"/"};
    ports.window = std::make_unique<NoneWindow>();
    ports.menuBar = std::make_unique<NoneMenuBar>();
    ports.statusBar = std::make_unique<NoneStatusBar>();
    ports.textView = std::make_unique<NoneTextView>();
    ports.htmlView = std::make_unique<NoneHtmlView>();
    ports.dialogs = std::make_unique<NoneDialogs>();
    ports.helpWindow = std::make_unique<NoneHelpWindow>();
    ports.clipboard = std::make_unique<NoneClipboard>();
    ports.saveTimer = std::make_unique<NoneTimer>();
    ports.scrollTimer = std::make_unique<NoneTimer>();
    ports.changeTimer = std::make_unique<NoneTimer>();
    ports.shell = std::make_unique<NoneShell>();
    ports.registry = std::make_unique<NoneRegistry>();
    auto clock = std::make_unique<NoneClock>();
    auto files = std::make_unique<NoneFiles>(*clock);
    files->AddFolder(ports.launch.programFolder);
    ports.fileWatch = std::make_unique<NoneFileWatch>(files->changes);
    ports.files = std::move(files);
    ports.clock = std::move(clock);
    auto versionInfo = std::make_unique<NoneVersionInfo>();
    versionInfo->version = {u"The Company", u"Norvaset", u"", u"", u"", u"", 2, 5, 12};
    ports.versionInfo = std::move(versionInfo);
    ports.updateCheck = std::make_unique<NoneUpdateCheck>();
    ports.locale = std::make_unique<NoneLocale>();
    return ports;
}
