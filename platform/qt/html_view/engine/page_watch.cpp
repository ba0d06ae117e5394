#include "platform/qt/html_view/engine/page_watch.h"

#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineScript>

namespace {
constexpr int tick = 1000; // milliseconds
// In ticks. A page of 50 MB is busy for two or three at a stretch while it loads and for twelve
// when it gets another size; on a slow machine that may be told of as a hang, and is no harm.
constexpr int maxSilence = 20;
} // namespace

PageWatch::PageWatch(QWebEnginePage& page) : page_(page) {
    ticks_.callOnTimeout([this] { Tick(); });
    ticks_.start(tick);
}

// Ticks are counted, not time: while this program stands still itself no page is late.
void PageWatch::Tick() {
    if (memory_.IsTooMuch(page_.renderProcessPid())) return onTooLarge();
    if (unanswered_ == 0) Ask();
    if (++unanswered_ <= maxSilence || silent_) return;
    silent_ = true;
    onChange();
}

void PageWatch::Ask() {
    page_.runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                        [this, alive = QPointer<PageWatch>(this)](const QVariant&) {
                            if (alive) Hear();
                        });
}

void PageWatch::Hear() {
    unanswered_ = 0;
    if (!silent_) return;
    // Not from within the engine's own call.
    QMetaObject::invokeMethod(
        this,
        [this] {
            silent_ = false;
            onChange();
        },
        Qt::QueuedConnection);
}
