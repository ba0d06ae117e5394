#include "platform/qt/html_view/engine/reader_page.h"

#include "platform/qt/html_view/engine/folder_guard.h"

#include <QWebEngineNewWindowRequest>

#include <csignal>
#include <utility>

ReaderPage::ReaderPage(QWebEngineProfile* profile, const FolderGuard& guard)
    : QWebEnginePage(profile), guard_(guard) {
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest& request) {
                if (request.isUserInitiated() && onLink) onLink(request.requestedUrl());
            });
}

void ReaderPage::Load(const QUrl& book) {
    due_ = book;
    load(book);
}

// Not before: with a print under way the engine does not survive that a process ends first.
void ReaderPage::TakeProcessAlong() {
    const auto process = static_cast<pid_t>(renderProcessPid());
    if (process > 0) connect(this, &QObject::destroyed, [process] { kill(process, SIGKILL); });
}

bool ReaderPage::acceptNavigationRequest(const QUrl& address, NavigationType type,
                                         bool isMainFrame) {
    if (isMainFrame && !due_.isEmpty() && address == due_) {
        due_.clear();
        return true;
    }
    if (type == NavigationTypeLinkClicked) {
        if (onLink) onLink(address);
        return false;
    }
    const bool loadsFrame = !isMainFrame && type == NavigationTypeOther;
    const bool isInline = address.scheme() == QLatin1String("about"); // blank, or in its attribute
    return loadsFrame && (isInline || guard_.Allows(address));
}
