#include "platform/qt/html_view/engine/page_scheme.h"

#include "platform/qt/html_view/engine/folder_guard.h"
#include "platform/qt/html_view/engine/page_url.h"

#include <QBuffer>
#include <QFile>
#include <QMimeDatabase>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestJob>

#include <utility>

namespace {
// As the engine does it with files: by the name.
QByteArray MimeTypeOf(const std::string& path) {
    static const QMimeDatabase database;
    return database.mimeTypeForFile(QFile::decodeName(path.c_str()), QMimeDatabase::MatchExtension)
        .name()
        .toLatin1();
}

bool IsHtml(const std::string& path) {
    return MimeTypeOf(path) == "text/html";
}
} // namespace

PageSchemeHandler::PageSchemeHandler(const FolderGuard& guard, Reader read)
    : guard_(guard), read_(std::move(read)) {}

void PageSchemeHandler::InstallIn(QWebEngineProfile& profile) {
    profile.installUrlSchemeHandler(pageScheme, this);
}

std::optional<std::string> PageSchemeHandler::Prepare(const std::string& path) {
    preparedPath_.clear();
    prepared_.reset();
    if (!read_ || !IsHtml(path)) return std::nullopt;
    std::optional<UndeclaredPage> page = read_(path);
    if (!page) return std::nullopt;
    preparedPath_ = path;
    std::string charset = page->charset;
    prepared_ = std::move(page);
    return charset;
}

// The prepared page, or a frame in it.
std::optional<UndeclaredPage> PageSchemeHandler::TakePage(const std::string& path) {
    if (path == preparedPath_ && prepared_) return std::exchange(prepared_, std::nullopt);
    return IsHtml(path) ? read_(path) : std::nullopt;
}

void PageSchemeHandler::requestStarted(QWebEngineUrlRequestJob* job) {
    const std::optional<std::string> path = LocalPathOf(job->requestUrl());
    if (!path || !guard_.Allows(job->requestUrl()))
        return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    // The job deletes what it reads from.
    if (const std::optional<UndeclaredPage> page = TakePage(*path)) {
        auto* buffer = new QBuffer(job);
        buffer->setData(QByteArray::fromStdString(page->bytes));
        buffer->open(QIODevice::ReadOnly);
        return job->reply("text/html;charset=" + QByteArray::fromStdString(page->sentAs), buffer);
    }
    auto* file = new QFile(QFile::decodeName(path->c_str()), job);
    if (!file->open(QIODevice::ReadOnly)) return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    job->reply(MimeTypeOf(*path), file);
}
