// The questions to the page, and the wait for its answers.
#include "common/find_text.h"
#include "platform/qt/html_view/engine/engine_html_view.h"
#include "platform/qt/html_view/engine/page_calls.h"
#include "platform/qt/html_view/engine/page_watch.h"
#include "platform/qt/html_view/engine/page_widget.h"
#include "platform/qt/html_view/engine/print_job.h"
#include "platform/qt/html_view/engine/reader_page.h"
#include "platform/qt/qt_text.h"

#include <QEvent>
#include <QTimer>
#include <QVariant>

struct EngineHtmlView::Wait {
    QEventLoop loop;
    std::optional<QVariant> answer;
};

void EngineHtmlView::EndWait() {
    if (wait_) wait_->loop.quit();
}

// What is written down when the window closes is where the page is then: it may still be laying
// itself out for a zoom, or scrolling for a key.
bool EngineHtmlView::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::Close) return false;
    EndWait();
    const auto state = Ask(QStringLiteral("state()"), QDeadlineTimer(maxPageWait),
                           QEventLoop::ExcludeUserInputEvents);
    if (state) TakeState(*state);
    closing_ = true;
    return false;
}

// A question asked while another one waits ends that one, too.
std::optional<QVariant> EngineHtmlView::Ask(const QString& expression, QDeadlineTimer end,
                                            QEventLoop::ProcessEventsFlags events) {
    if (wait_) {
        EndWait();
        return std::nullopt;
    }
    if (!CanCall() || watch_->IsSilent() || closing_) return std::nullopt;
    const auto wait = std::make_shared<Wait>();
    wait_ = wait.get();
    calls_->Call(expression, [weak = std::weak_ptr(wait)](const QVariant& answer) {
        const auto waiting = weak.lock();
        if (!waiting) return; // too late
        waiting->answer = answer;
        waiting->loop.quit();
    });
    QTimer::singleShot(static_cast<int>(end.remainingTime()), &wait->loop, &QEventLoop::quit);
    wait->loop.exec(events);
    wait_ = nullptr;
    TellJump();
    return wait->answer && wait->answer->isValid() ? wait->answer : std::nullopt;
}

std::vector<std::u16string> EngineHtmlView::TextsOf(const std::vector<PageSpan>& spans) {
    QStringList pairs;
    for (const PageSpan& span : spans)
        pairs.append(QStringLiteral("[%1,%2]").arg(span.start).arg(span.length));
    const auto answer = Ask(QStringLiteral("texts([%1])").arg(pairs.join(QLatin1Char(','))));
    std::vector<std::u16string> texts;
    if (!answer) return texts;
    for (const QVariant& text : answer->toList())
        texts.push_back(FromQt(text.toString()));
    return texts;
}

std::u16string EngineHtmlView::SelectedText() {
    const auto answer = Ask(QStringLiteral("selectedText()"));
    return answer ? FromQt(answer->toString()) : u"";
}

std::u16string EngineHtmlView::SelectionAsHtml() {
    const auto answer = Ask(QStringLiteral("selectionHtml()"));
    return answer ? FromQt(answer->toString()) : u"";
}

// The text comes over once and is searched here, by the rules of the text view.
bool EngineHtmlView::FetchText(QDeadlineTimer end) {
    if (wholeText_) return true;
    const auto text = Ask(QStringLiteral("wholeText()"), end);
    if (text) wholeText_ = FromQt(text->toString());
    return wholeText_.has_value();
}

std::optional<PageMatch> EngineHtmlView::FindBehindSelection(std::u16string_view asked,
                                                             FindOptions options) {
    const std::u16string what(asked); // its owner may change it while the page is waited for
    const QDeadlineTimer end(maxPageWait);
    if (!FetchText(end)) return std::nullopt;
    const auto state = Ask(QStringLiteral("state()"), end);
    if (!state) return std::nullopt;
    TakeState(*state);
    const PageSpan& selected = kept_.selection.span;
    const TextPos start = selected.start + selected.length;
    const auto found = FindText(*wholeText_, what, static_cast<std::size_t>(start), options);
    if (found == std::u16string::npos) return std::nullopt;
    const auto place = Ask(QStringLiteral("matchAt(%1, %2)").arg(found).arg(start), end);
    if (!place) return std::nullopt;
    const QVariantList edges = place->toList();
    if (edges.size() != 3) return std::nullopt;
    return PageMatch{{static_cast<TextPos>(found), static_cast<TextPos>(what.size())},
                     edges[0].toInt(),
                     edges[1].toInt(),
                     edges[2].toInt()};
}

TextPos EngineHtmlView::StartAtTop() {
    const auto answer = Ask(QStringLiteral("startAtTop()"));
    return answer ? answer->toInt() : -1;
}
