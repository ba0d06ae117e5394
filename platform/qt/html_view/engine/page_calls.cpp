#include "platform/qt/html_view/engine/page_calls.h"

#include <QFile>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include <algorithm>
#include <cmath>

namespace {
constexpr int maxZoomTime = 1000; // milliseconds from the first answer; a page takes a few
constexpr int askAgain = 2;       // milliseconds
constexpr QLatin1String stateQuestion("state()");

QString Source(const char* name) {
    QFile file(QLatin1String(":/norvaset/") + QLatin1String(name));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}
} // namespace

PageCalls::PageCalls(QWebEnginePage& page) : page_(page) {
    again_.setSingleShot(true);
    again_.callOnTimeout([this] { AskForRatio(); });
}

void PageCalls::LoadScript() {
    page_.runJavaScript(Source("page_text.js") + Source("page_script.js"),
                        QWebEngineScript::ApplicationWorld);
}

void PageCalls::Call(const QString& expression, Answer answer) {
    steps_.push_back({expression, std::move(answer)});
    Proceed();
}

void PageCalls::AskState(Answer answer) {
    Call(stateQuestion, std::move(answer));
}

// Many keys in a row become one new size, or two: the first is begun at once. The state may as well
// be asked afterwards.
void PageCalls::SetZoom(double factor, double screenRatio, int steps, Answer settled) {
    const Step size{{}, std::move(settled), factor, factor * screenRatio, steps};
    const auto last = std::find_if(steps_.rbegin(), steps_.rend(), [](const Step& step) {
        return step.expression != stateQuestion;
    });
    if (last != steps_.rend() && last->expression.isEmpty())
        *last = size;
    else
        steps_.push_back(size);
    Proceed();
}

// The engine keeps calls in order, but a new size takes another way to the page and may be
// overtaken: the page is asked until it has it.
void PageCalls::Proceed() {
    while (!zooming_ && !steps_.empty()) {
        if (steps_.front().expression.isEmpty()) {
            zooming_ = true;
            Run({"holdPlace()", [this, alive = QPointer<PageCalls>(this)](const QVariant&) {
                     if (alive) StartZoom();
                 }});
            return;
        }
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        Run(step);
    }
}

void PageCalls::Run(const Step& step) {
    const QString source = QStringLiteral("norvaset.") + step.expression;
    if (step.answer)
        page_.runJavaScript(source, QWebEngineScript::ApplicationWorld, step.answer);
    else
        page_.runJavaScript(source, QWebEngineScript::ApplicationWorld);
}

void PageCalls::StartZoom() {
    zoomEnd_ = QDeadlineTimer(QDeadlineTimer::Forever);
    page_.setZoomFactor(steps_.front().factor);
    AskForRatio();
}

void PageCalls::AskForRatio() {
    const auto answered = [this, alive = QPointer<PageCalls>(this)](const QVariant& ratio) {
        if (!alive) return;
        const Step& step = steps_.front();
        if (zoomEnd_.isForever()) zoomEnd_.setRemainingTime(maxZoomTime);
        if (std::abs(ratio.toDouble() - step.pixelRatio) > 0.01 && !zoomEnd_.hasExpired()) {
            page_.setZoomFactor(step.factor); // the last of steps given meanwhile
            return again_.start(askAgain);
        }
        FinishZoom();
    };
    Run({QStringLiteral("pixelRatio()"), answered});
}

// Answers come in the order of the calls: those behind this one are of the new size.
void PageCalls::FinishZoom() {
    const Step size = std::move(steps_.front());
    steps_.pop_front();
    zooming_ = false;
    Run({QStringLiteral("backToPlace()"),
         [this, size, alive = QPointer<PageCalls>(this)](const QVariant& state) {
             if (!alive) return;
             zoomSteps_ = size.zoomSteps;
             size.answer(state);
         }});
    Proceed();
}
