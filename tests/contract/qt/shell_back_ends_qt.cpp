// The desktop's shell on Qt. A script stands for xdg-open and for any other program.
#include "platform/qt/base/qt_text.h"
#include "platform/qt/system/qt_shell.h"
#include "tests/contract/qt/event_loop.h"
#include "tests/contract/shell_contract.h"
#include "tests/contract/temporary_folder_posix.h"

#include <doctest/doctest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
constexpr char script[] = "#!/bin/sh\n"
                          "folder=$(dirname \"$0\")\n"
                          "printf '%s\\0' \"$@\" >\"$folder/$$.part\"\n"
                          "mv \"$folder/$$.part\" \"$folder/$$.started\"\n";

class QtShellUnderTest final : public ShellUnderTest {
  public:
    QtShellUnderTest() : path_(qgetenv("PATH")) {
        AddProgram("xdg-open");
        AddProgram("my \u0440\u0435\u0434\u0430\u043A\u0442\u043E\u0440");
        qputenv("PATH", QByteArray::fromStdString(folder_.path) + ':' + path_);
    }
    ~QtShellUnderTest() override { qputenv("PATH", path_); }

    Shell& Port() override { return shell_; }
    std::u16string Program() override {
        return Folder() + u"/my \u0440\u0435\u0434\u0430\u043A\u0442\u043E\u0440";
    }
    std::u16string Folder() override { return FromQt(QString::fromStdString(folder_.path)); }
    std::u16string Address() override { return u"mailto:anna@example.org"; }
    std::u16string File() override { return Folder() + u"/a song"; }
    bool Exists(const std::u16string& path) override { return QFileInfo(ToQt(path)).isFile(); }

    void Settle() override {
        int rounds = 0;
        Becomes([&] { return ++rounds > 2; });
    }
    std::vector<std::u16string> NextStart() override {
        QStringList records;
        const QDir folder(QString::fromStdString(folder_.path));
        REQUIRE(Becomes([&] {
            records = folder.entryList({QStringLiteral("*.started")});
            return !records.empty();
        }));
        REQUIRE(records.size() == 1); // else something was started before that should not
        QFile file(folder.filePath(records.front()));
        REQUIRE(file.open(QIODevice::ReadOnly));
        QList<QByteArray> arguments = file.readAll().split('\0');
        arguments.removeLast(); // after the last NUL
        file.remove();
        std::vector<std::u16string> texts;
        for (const QByteArray& argument : arguments)
            texts.push_back(FromQt(QString::fromUtf8(argument)));
        return texts;
    }

  private:
    void AddProgram(const std::string& name) {
        QFile file(QString::fromStdString(folder_.path + '/' + name));
        REQUIRE(file.open(QIODevice::WriteOnly));
        file.write(script);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    const QByteArray path_;
    TemporaryFolder folder_;
    QtShell shell_;
};
} // namespace

std::vector<BackEnd<ShellUnderTest>> ShellBackEnds() {
    return {MakeBackEnd<ShellUnderTest, QtShellUnderTest>("qt")};
}
