#include "platform/qt/system/qt_shell.h"

#include "common/web_address.h"
#include "platform/qt/base/qt_text.h"
#include "platform/shared/call_handler.h"

#include <QProcess>
#include <QSocketNotifier>
#include <QStandardPaths>

QtShell::QtShell(std::u16string activation) : activation_(std::move(activation)) {}

QtShell::~QtShell() = default;

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

void QtShell::AddRecentDocument(const std::u16string& path) {
    recentDocuments_.Add(ToQt(path));
}

InstanceClaim QtShell::ClaimDataFile(const std::u16string& path) {
    InstanceClaim claim = lock_.Acquire(path);
    const auto lockPath = InstanceLock::PathFor(path);
    if (!notifier_ && lock_.IsHeld() && lockPath && listener_.Listen(*lockPath)) {
        notifier_ = std::make_unique<QSocketNotifier>(listener_.Number(), QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                         [this] { AnswerStartRequest(); });
    }
    return claim;
}

void QtShell::AnswerStartRequest() {
    const auto handler = onStartRequest; // which the handler may take away
    if (const auto request = listener_.Accept(handler != nullptr)) CallHandler(handler, *request);
}

HandOver QtShell::HandOverBook(const std::u16string& dataFile, const std::u16string& book,
                               int milliseconds) {
    const auto lockPath = InstanceLock::PathFor(dataFile);
    if (!lockPath) return HandOver::NobodyThere;
    return AskRunningInstance(*lockPath, {book, activation_}, milliseconds);
}
