// Restricts what a page may load: data: URLs, and files in the book's folder and below.
#pragma once

#include <QWebEngineUrlRequestInterceptor>

#include <filesystem>

class FolderGuard : public QWebEngineUrlRequestInterceptor {
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void SetBook(const std::filesystem::path& path); // an empty path allows no file
    bool Allows(const QUrl&) const;                  // resolves symbolic links

    void interceptRequest(QWebEngineUrlRequestInfo&) override;

  private:
    std::filesystem::path folder_;
};
