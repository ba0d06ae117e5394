#include "platform/qt/html_view/engine/page_calls.h"

#include <QFile>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include <algorithm>
#include <cmath>

namespace {
constexpr int zoomTimeout = 1000; // milliseconds since the first reply; a page takes a few
constexpr int retryInterval = 2;  // milliseconds
constexpr QLatin1String stateExpression("state()");

QString Source(const char* name) {
    QFile file(QLatin1String(":/norvaset/") + QLatin1String(name));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}
} // namespace

PageCalls::PageCalls(QWebEnginePage& page) : page_(page) {
    retryTimer_.setSingleShot(true);
    retryTimer_.callOnTimeout([this] { CheckPixelRatio(); });
}

void PageCalls::LoadScript() {
    page_.runJavaScript(Source("page_text.js") + Source("page_script.js"),
                        QWebEngineScript::ApplicationWorld);
}

void PageCalls::Call(const QString& expression, Callback callback) {
    queue_.push_back({expression, std::move(callback)});
    ProcessQueue();
}

void PageCalls::QueryState(Callback callback) {
    Call(stateExpression, std::move(callback));
}

// Successive zoom keys collapse into one change of size, or two, because the first one starts at
// once. A pending state query may run after it.
void PageCalls::SetZoom(double factor, double screenRatio, int steps, Callback onApplied) {
    const QueuedCall zoom{{}, std::move(onApplied), factor, factor * screenRatio, steps};
    const auto last = std::find_if(queue_.rbegin(), queue_.rend(), [](const QueuedCall& call) {
        return call.expression != stateExpression;
    });
    if (last != queue_.rend() && last->expression.isEmpty())
        *last = zoom;
    else
        queue_.push_back(zoom);
    ProcessQueue();
}

// The engine runs scripts in order, but a zoom factor reaches the renderer by another channel and
// may be overtaken: so the page is polled until it has the new pixel ratio.
void PageCalls::ProcessQueue() {
    while (!zooming_ && !queue_.empty()) {
        if (queue_.front().expression.isEmpty()) {
            zooming_ = true;
            RunScript(
                {"saveScrollAnchor()", [this, alive = QPointer<PageCalls>(this)](const QVariant&) {
                     if (alive) StartZoom();
                 }});
            return;
        }
        const QueuedCall call = std::move(queue_.front());
        queue_.pop_front();
        RunScript(call);
    }
}

void PageCalls::RunScript(const QueuedCall& call) {
    const QString source = QStringLiteral("norvaset.") + call.expression;
    if (call.callback)
        page_.runJavaScript(source, QWebEngineScript::ApplicationWorld, call.callback);
    else
        page_.runJavaScript(source, QWebEngineScript::ApplicationWorld);
}

void PageCalls::StartZoom() {
    zoomDeadline_ = QDeadlineTimer(QDeadlineTimer::Forever);
    page_.setZoomFactor(queue_.front().factor);
    CheckPixelRatio();
}

void PageCalls::CheckPixelRatio() {
    const auto answered = [this, alive = QPointer<PageCalls>(this)](const QVariant& ratio) {
        if (!alive) return;
        const QueuedCall& call = queue_.front();
        if (zoomDeadline_.isForever()) zoomDeadline_.setRemainingTime(zoomTimeout);
        if (std::abs(ratio.toDouble() - call.pixelRatio) > 0.01 && !zoomDeadline_.hasExpired()) {
            page_.setZoomFactor(call.factor); // a later factor may have replaced the first
            return retryTimer_.start(retryInterval);
        }
        FinishZoom();
    };
    RunScript({QStringLiteral("pixelRatio()"), answered});
}

// Scripts run in order: everything queued from here on sees the new size.
void PageCalls::FinishZoom() {
    const QueuedCall zoom = std::move(queue_.front());
    queue_.pop_front();
    zooming_ = false;
    RunScript({QStringLiteral("restoreScrollAnchor()"),
               [this, zoom, alive = QPointer<PageCalls>(this)](const QVariant& state) {
                   if (!alive) return;
                   zoomSteps_ = zoom.zoomSteps;
                   zoom.callback(state);
               }});
    ProcessQueue();
}
