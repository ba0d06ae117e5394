#include "platform/qt/text_view/pane/dropped_paths.h"

#include "common/utf.h"
#include "platform/qt/base/file_url.h"

#include <QList>
#include <QMimeData>

namespace {
const QString uriListFormat = QStringLiteral("text/uri-list");
}

std::vector<std::u16string> DroppedPaths(const QByteArray& uriList) {
    std::vector<std::u16string> paths;
    for (const QByteArray& line : uriList.split('\n')) {
        const QByteArray address = line.trimmed();
        if (address.startsWith('#')) continue;
        if (const auto path = LocalPathOf(address.toStdString()))
            paths.push_back(Utf8ToUtf16(*path, u'?'));
    }
    return paths;
}

void AcceptFileDrag(QDropEvent& event) {
    if (event.mimeData()->hasFormat(uriListFormat)) event.acceptProposedAction();
}

std::vector<std::u16string> AcceptFileDrop(QDropEvent& event) {
    std::vector<std::u16string> paths = DroppedPaths(event.mimeData()->data(uriListFormat));
    if (!paths.empty()) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    }
    return paths;
}
