// What the desktop calls programs, by desktop entries and lists as desktops have them.
#include "platform/qt/system/desktop_entries.h"
#include "platform/qt/system/qt_version_info.h"
#include "tests/contract/temporary_folder_posix.h"

#include <QByteArray>

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

namespace {
class Variable {
  public:
    Variable(const char* name, const std::string& value) : name_(name), before_(qgetenv(name)) {
        qputenv(name, QByteArray::fromStdString(value));
    }
    ~Variable() { qputenv(name_, before_); } // "" counts as unset
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* const name_;
    const QByteArray before_;
};

// A desktop of its own, without anything of this machine's.
class Desktop {
  public:
    void Put(const std::string& file, const std::string& text) const {
        const std::filesystem::path path = folder_.path + "/" + file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }
    void PutProgram(const std::string& name, const std::string& shown, const std::string& exec) {
        Put("data/applications/" + name,
            "[Desktop Entry]\nName=" + shown + "\nExec=" + exec + "\n");
    }

    QtVersionInfo port;

  private:
    TemporaryFolder folder_;
    const Variable data_{"XDG_DATA_HOME", folder_.path + "/data"},
        dataOfAll_{"XDG_DATA_DIRS", folder_.path + "/none"},
        config_{"XDG_CONFIG_HOME", folder_.path + "/config"},
        configOfAll_{"XDG_CONFIG_DIRS", folder_.path + "/none"},
        desktop_{"XDG_CURRENT_DESKTOP", "Some:Other"};
};
constexpr const char16_t* opener = u"/usr/bin/xdg-open";
} // namespace

TEST_CASE("desktop entries: the desktop's opener is called as what it starts") {
    Desktop desktop;
    CHECK(desktop.port.FileDescription(opener, u".txt") == u"Text Editor");
    CHECK(desktop.port.FileDescription(opener, u".rtf") == u"Word Processor");
    CHECK(desktop.port.FileDescription(opener, u".htm") == u"Web Browser");
    desktop.PutProgram("plain.desktop", "Plain", "plain %F");
    desktop.PutProgram("rich.desktop", "Rich", "rich %F");
    desktop.PutProgram("own.desktop", "Own", "own %F");
    desktop.Put("data/applications/mimeinfo.cache",
                "[MIME Cache]\ntext/html=rich.desktop;\ntext/plain=gone.desktop;plain.desktop;\n");
    CHECK(desktop.port.FileDescription(opener, u".txt") == u"Plain");
    CHECK(desktop.port.FileDescription(opener, u".HTM") == u"Rich");
    desktop.Put("config/mimeapps.list", "[Added Associations]\ntext/plain=rich.desktop\n");
    CHECK(desktop.port.FileDescription(opener, u".txt") == u"Rich");
    desktop.Put("data/applications/mimeapps.list",
                "[Default Applications]\ntext/plain=gone.desktop;plain.desktop;\n");
    CHECK(desktop.port.FileDescription(opener, u".txt") == u"Plain");
    desktop.Put("config/other-mimeapps.list", "[Default Applications]\ntext/plain = own.desktop\n");
    CHECK(desktop.port.FileDescription(opener, u".txt") == u"Own");
}

TEST_CASE("desktop entries: a program is found by what its entry starts") {
    Desktop desktop;
    desktop.PutProgram("org.example.TextEditor.desktop", "Text Editor", "text-editor %U");
    desktop.PutProgram("org.example.Other.desktop", "Other", "\"/opt/my other/other\" --new %U");
    desktop.PutProgram("empty.desktop", "Empty", "");
    desktop.PutProgram("named.desktop", "Named", "something-else");
    desktop.Put("data/applications/mimeinfo.cache",
                "[MIME Cache]\ntext/plain=empty.desktop;org.example.Other.desktop;"
                "org.example.TextEditor.desktop\n");
    CHECK(ProgramName("/usr/bin/text-editor", "text/plain") == "Text Editor");
    CHECK(ProgramName("/opt/my other/other", "text/plain") == "Other");
    CHECK(ProgramName("/usr/bin/other", "text/plain").isEmpty());
    CHECK(ProgramName("/usr/bin/named", "text/plain") == "Named");
    CHECK(ProgramName("", "text/plain").isEmpty());
    CHECK(desktop.port.FileDescription(u"/usr/bin/text-editor", u".txt") == u"Text Editor");
    CHECK(desktop.port.FileDescription(u"/usr/bin/text-editor", u".htm").empty());
}
