#include "platform/qt/system/qt_file_watch.h"

#include "platform/posix/posix_paths.h"
#include "platform/shared/call_handler.h"

#include <QSocketNotifier>

QtFileWatch::QtFileWatch() = default;
QtFileWatch::~QtFileWatch() = default;

void QtFileWatch::Watch(const std::u16string& path) {
    Stop();
    const auto native = NativePath(path);
    if (!native) return;
    changes_ = FileChanges(*native);
    if (changes_.Number() < 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(changes_.Number(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        if (changes_.Take()) CallHandler(onChanged);
    });
}

void QtFileWatch::Stop() {
    if (notifier_) { // perhaps from within its own signal
        notifier_->setEnabled(false);
        notifier_.release()->deleteLater();
    }
    changes_ = FileChanges();
}
