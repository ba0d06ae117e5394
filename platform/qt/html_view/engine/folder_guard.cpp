#include "platform/qt/html_view/engine/folder_guard.h"

#include "platform/posix/real_path.h"
#include "platform/qt/html_view/engine/page_url.h"

#include <QLoggingCategory>

#include <system_error>

namespace {
// Log blocked requests with QT_LOGGING_RULES="norvaset.refused.debug=true".
Q_LOGGING_CATEGORY(refused, "norvaset.refused", QtInfoMsg)
} // namespace

void FolderGuard::SetBook(const std::filesystem::path& path) {
    std::error_code error;
    folder_ = path.empty() ? path : std::filesystem::canonical(path.parent_path(), error);
}

bool FolderGuard::Allows(const QUrl& address) const {
    if (address.scheme() == QLatin1String("data")) return true;
    const auto path = LocalPathOf(address);
    const auto file = path ? RealPathBelow(folder_, *path) : std::nullopt;
    std::error_code error;
    return file && std::filesystem::is_regular_file(*file, error); // a pipe might never end
}

void FolderGuard::interceptRequest(QWebEngineUrlRequestInfo& request) {
    if (Allows(request.requestUrl())) return;
    qCDebug(refused).noquote() << request.requestUrl().toDisplayString();
    request.block(true);
}
