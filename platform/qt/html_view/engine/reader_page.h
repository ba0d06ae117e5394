// One load of a book: rejects navigation and dialogs, and reports links that the user follows.
#pragma once

#include <QUrl>
#include <QWebEnginePage>

#include <functional>

class FolderGuard;

class ReaderPage : public QWebEnginePage {
  public:
    ReaderPage(QWebEngineProfile*, const FolderGuard&);

    // The document loaded next is drawn on this from its first picture, until a script gives it its
    // background.
    void ExpectBackColor(const QColor&);
    void Load(const QUrl& book);
    // Kills the renderer process when the page is deleted: a hung one would outlive the page and
    // the program.
    void KillProcessWhenDestroyed();

    std::function<void(const QUrl&)> onLink; // out of the page, by the user

  protected:
    bool acceptNavigationRequest(const QUrl&, NavigationType, bool isMainFrame) override;
    QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override {
        return {};
    }
    void javaScriptAlert(const QUrl&, const QString&) override {}
    bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }
    bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override {
        return false;
    }
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override {}

  private:
    const FolderGuard& guard_;
    QUrl pendingLoad_; // the load that Load() has started and that is to be accepted
};
