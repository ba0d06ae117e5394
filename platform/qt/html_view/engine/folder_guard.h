// What a page may load: data that it brings along, and files in its book's folder and below.
#pragma once

#include <QWebEngineUrlRequestInterceptor>

#include <filesystem>

class FolderGuard : public QWebEngineUrlRequestInterceptor {
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void SetBook(const std::filesystem::path& path); // an empty path allows no file
    bool Allows(const QUrl&) const;                  // links in the file system are followed first

    void interceptRequest(QWebEngineUrlRequestInfo&) override;

  private:
    std::filesystem::path folder_;
};
