#include "platform/qt/html_view/engine/reader_page.h"

#include "platform/qt/html_view/engine/folder_guard.h"

#include <QColor>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

#include <csignal>

ReaderPage::ReaderPage(QWebEngineProfile* profile, const FolderGuard& guard)
    : QWebEnginePage(profile), guard_(guard) {
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest& request) {
                if (request.isUserInitiated() && onLink) onLink(request.requestedUrl());
            });
}

// The view itself has the colour before there is a document.
void ReaderPage::ExpectBackColor(const QColor& color) {
    setBackgroundColor(color);
    QWebEngineScript script;
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setSourceCode(
        QStringLiteral("globalThis.norvasetBackColor = new CSSStyleSheet();"
                       "norvasetBackColor.replaceSync('body {background-color: %1 !important}');"
                       "document.adoptedStyleSheets = [norvasetBackColor];")
            .arg(color.name()));
    scripts().insert(script);
}

void ReaderPage::Load(const QUrl& book) {
    pendingLoad_ = book;
    load(book);
}

// Not earlier: while a PDF is being rendered, the engine does not survive the death of a renderer.
void ReaderPage::KillProcessWhenDestroyed() {
    const auto process = static_cast<pid_t>(renderProcessPid());
    if (process > 0) connect(this, &QObject::destroyed, [process] { kill(process, SIGKILL); });
}

bool ReaderPage::acceptNavigationRequest(const QUrl& address, NavigationType type,
                                         bool isMainFrame) {
    if (isMainFrame && !pendingLoad_.isEmpty() && address == pendingLoad_) {
        pendingLoad_.clear();
        return true;
    }
    if (type == NavigationTypeLinkClicked) {
        if (onLink) onLink(address);
        return false;
    }
    const bool loadsFrame = !isMainFrame && type == NavigationTypeOther;
    const bool isInline = address.scheme() == QLatin1String("about"); // about:blank or about:srcdoc
    return loadsFrame && (isInline || guard_.Allows(address));
}
