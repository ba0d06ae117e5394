// The handler of a scheme of our own for pages that do not say their charset, and what is beside
// them: with file: the engine takes the bytes from the disk and decides by itself.
#pragma once

#include "platform/qt/html_view/undeclared_page.h"

#include <QByteArray>
#include <QWebEngineUrlSchemeHandler>

#include <functional>
#include <optional>
#include <string>

class FolderGuard;
class QWebEngineProfile;

class PageSchemeHandler : public QWebEngineUrlSchemeHandler {
  public:
    using Reader = std::function<std::optional<UndeclaredPage>(const std::string& path)>;

    PageSchemeHandler(const FolderGuard&, Reader); // the guard must outlive this object
    void InstallIn(QWebEngineProfile&);

    // The name of its charset when the page is one for this scheme; kept until it is requested.
    std::optional<std::string> Prepare(const std::string& path);

    void requestStarted(QWebEngineUrlRequestJob*) override;

  private:
    std::optional<UndeclaredPage> TakePage(const std::string& path);

    const FolderGuard& guard_;
    Reader read_;
    std::string preparedPath_;
    std::optional<UndeclaredPage> prepared_;
};
