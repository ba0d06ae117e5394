#include "platform/qt/system/qt_clipboard.h"

#include "platform/qt/base/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>

void QtClipboard::SetText(const std::u16string& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
}
