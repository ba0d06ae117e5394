#include "platform/qt/system/qt_shell.h"

#include "common/web_address.h"
#include "platform/qt/qt_text.h"

#include <QProcess>
#include <QStandardPaths>

std::u16string QtShell::DefaultTextEditor() const {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    return opener.isEmpty() ? u"/usr/bin/xdg-open" : FromQt(opener);
}

void QtShell::OpenWith(const std::u16string& program, const std::u16string& argument) {
    QProcess::startDetached(ToQt(program), {ToQt(argument)});
}

void QtShell::OpenAddress(const std::u16string& address) {
    // xdg-open opens URLs, too.
    if (IsProgramAddress(address)) OpenWith(DefaultTextEditor(), address);
}

void QtShell::OpenFile(const std::u16string& path) {
    if (path.starts_with(u'/'))
        OpenWith(DefaultTextEditor(), path); // otherwise it might be parsed as an option
}

InstanceClaim QtShell::ClaimDataFile(const std::u16string& path) {
    return lock_.Acquire(path);
}
