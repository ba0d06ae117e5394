// One load of a book in the engine: goes nowhere, opens nothing, and tells of links followed.
#pragma once

#include <QUrl>
#include <QWebEnginePage>

#include <functional>

class FolderGuard;

class ReaderPage : public QWebEnginePage {
  public:
    ReaderPage(QWebEngineProfile*, const FolderGuard&);

    void Load(const QUrl& book);
    // What shows the page ends when the page is deleted. Left to itself a process that hangs would
    // outlive the page, and the program.
    void TakeProcessAlong();

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
    QUrl due_; // the load of our own that has not begun
};
