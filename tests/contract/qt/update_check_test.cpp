// The update check of the program with the real module and a local server.
#include "app/main_form.h"
#include "app/start_up.h"
#include "platform/none/none_ports.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/web_fetch/qt_update_check.h"
#include "tests/contract/loopback_server.h"

#include <doctest/doctest.h>

namespace {
// A form on the headless back end with Qt's update check, and version 2.5.12.
struct CheckingForm {
    explicit CheckingForm(const QString& webSite, const char* moduleFolder = MODULE_FOLDER)
        : form(MakeNonePorts()) {
        form.ports.updateCheck =
            std::make_unique<QtUpdateCheck>(QStringList{"/nowhere", moduleFolder});
        auto& version = static_cast<NoneVersionInfo&>(*form.ports.versionInfo).version;
        version.comments = FromQt(webSite) + u", mailto:us@web.example";
        Form_Load(form);
        static_cast<NoneMenuBar&>(*form.ports.menuBar).Click(form.menu.mHelpUpdate);
    }
    const NoneDialogs& Dialogs() const { return static_cast<NoneDialogs&>(*form.ports.dialogs); }
    std::u16string Describe() const {
        return Dialogs().messages.size() == 1 ? Dialogs().messages[0].text : u"";
    }
    MainForm form;
};

constexpr std::u16string_view notAccessible =
    u"Remote resource is not accessible now.\r\nPlease try later.";
constexpr std::u16string_view upToDate = u"Your copy of the application is up to date.";

std::u16string MessageAfter(const QByteArray& body, const QByteArray& status = "200 OK") {
    LoopbackServer server([&](QTcpSocket& socket, const QByteArray& path) {
        if (path == "/Products/Norvaset/Norvaset.js")
            SendAnswer(socket, status, body);
        else
            SendAnswer(socket, "404 Not Found", "");
    });
    const CheckingForm checking(server.Address());
    CHECK(server.requests.size() == 1);
    return checking.Describe();
}
} // namespace

TEST_CASE("qt update check: equal, older, absent and nonsense") {
    CHECK(MessageAfter("{\"version\":\"2.5.12\"}\n") == upToDate);
    CHECK(MessageAfter("{\"version\":\"2.5.11\"}\n") == upToDate);
    CHECK(MessageAfter("{\"version\":\"9.0.0\"}\n", "404 Not Found") == notAccessible);
    CHECK(MessageAfter("") == notAccessible);
    CHECK(MessageAfter("<html>Please sign in to use this network</html>") == notAccessible);
    CHECK(MessageAfter("{\"version\":\"9.0.{\\\\object}\"}\n") == notAccessible);
}

TEST_CASE("qt update check: a newer version is offered") {
    LoopbackServer server([](QTcpSocket& socket, const QByteArray&) {
        SendAnswer(socket, "200 OK", "{\"version\":\"2.6.0\"}\n");
    });
    const CheckingForm checking(server.Address());
    CHECK(checking.Dialogs().messages.empty());
    REQUIRE(checking.Dialogs().richMessages.size() == 1);
    CHECK(checking.Dialogs().richMessages[0].rtf.find("Version 2.6 is now available") !=
          std::string::npos);
}

TEST_CASE("qt update check: the packages of the system") {
    using Names = std::vector<std::u16string>;
    const Names page{u""}, one{u"norvaset_*_amd64.deb"},
        both{u"norvaset_*_amd64.deb", u"norvaset-html_*_amd64.deb"};
    const QString debian = "PRETTY_NAME=\"Debian GNU/Linux 12\"\nID=debian\n";
    CHECK(SystemPackages(debian, "x86_64", false) == one);
    CHECK(SystemPackages(debian, "x86_64", true) == both);
    CHECK(SystemPackages("ID=zorin\nID_LIKE=\"ubuntu debian\"\n", "x86_64", true) == both);
    CHECK(SystemPackages(debian, "arm64", false) == Names{u"norvaset_*_arm64.deb"});
    CHECK(SystemPackages(debian, "mips", true) == page);
    CHECK(SystemPackages("ID=fedora\nNAME=\"Not debian\"\n", "x86_64", true) == page);
    CHECK(SystemPackages("", "x86_64", true) == page);
}

TEST_CASE("qt update check: without a server, and without the module") {
    LoopbackServer server([](QTcpSocket&, const QByteArray&) {});
    server.Close();
    CHECK(CheckingForm(server.Address()).Describe() == notAccessible);
    CHECK(CheckingForm(server.Address(), "/nowhere/else").Describe() == notAccessible);
}
