// Queries to the page: they run an event loop until the reply arrives.
#include "common/find_text.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/html_view/engine/engine_html_view.h"
#include "platform/qt/html_view/engine/page_calls.h"
#include "platform/qt/html_view/engine/page_monitor.h"
#include "platform/qt/html_view/engine/page_widget.h"
#include "platform/qt/html_view/engine/print_job.h"
#include "platform/qt/html_view/engine/reader_page.h"

#include <QTimer>
#include <QVariant>

#include <algorithm>
#include <utility>

struct EngineHtmlView::PendingQuery {
    QEventLoop loop;
    std::optional<QVariant> answer;
};

void EngineHtmlView::CancelQuery() {
    if (pendingQuery_) pendingQuery_->loop.quit();
}

// A last query, because the page may still be applying a zoom or scrolling for a key.
void EngineHtmlView::PrepareToClose() {
    CancelQuery();
    PendingQuery* const cancelled = std::exchange(pendingQuery_, nullptr); // still in its loop
    const auto state = Query(QStringLiteral("state()"), QDeadlineTimer(maxPageWait),
                             QEventLoop::ExcludeUserInputEvents);
    if (state) ApplyState(*state);
    pendingQuery_ = cancelled;
    closing_ = true;
}

// A nested query fails, and cancels the one that is waiting.
std::optional<QVariant> EngineHtmlView::Query(const QString& expression, QDeadlineTimer end,
                                              QEventLoop::ProcessEventsFlags events) {
    if (pendingQuery_) {
        CancelQuery();
        return std::nullopt;
    }
    if (!CanCall() || monitor_->IsUnresponsive() || closing_) return std::nullopt;
    const auto query = std::make_shared<PendingQuery>();
    pendingQuery_ = query.get();
    calls_->Call(expression, [weak = std::weak_ptr(query)](const QVariant& answer) {
        const auto waiting = weak.lock();
        if (!waiting) return; // timed out
        waiting->answer = answer;
        waiting->loop.quit();
    });
    QTimer::singleShot(static_cast<int>(end.remainingTime()), &query->loop, &QEventLoop::quit);
    query->loop.exec(events);
    pendingQuery_ = nullptr;
    NotifyJump();
    return query->answer && query->answer->isValid() ? query->answer : std::nullopt;
}

std::vector<std::u16string> EngineHtmlView::TextsOf(const std::vector<PageSpan>& spans) {
    QStringList pairs;
    for (const PageSpan& span : spans)
        pairs.append(QStringLiteral("[%1,%2]").arg(span.start).arg(span.length));
    const auto answer = Query(QStringLiteral("texts([%1])").arg(pairs.join(QLatin1Char(','))));
    std::vector<std::u16string> texts;
    if (!answer) return texts;
    for (const QVariant& text : answer->toList())
        texts.push_back(FromQt(text.toString()));
    return texts;
}

std::u16string EngineHtmlView::SelectedText() {
    const auto answer = Query(QStringLiteral("selectedText()"));
    return answer ? FromQt(answer->toString()) : u"";
}

std::u16string EngineHtmlView::SelectionAsHtml() {
    const auto answer = Query(QStringLiteral("selectionHtml()"));
    return answer ? FromQt(answer->toString()) : u"";
}

// The text is transferred once and searched here, by the rules of the text view.
bool EngineHtmlView::FetchText(QDeadlineTimer end) {
    if (textCache_) return true;
    const auto text = Query(QStringLiteral("wholeText()"), end);
    if (text) textCache_ = FromQt(text->toString());
    return textCache_.has_value();
}

std::optional<PageMatch> EngineHtmlView::FindAfterSelection(std::u16string_view what,
                                                            FindOptions options) {
    const std::u16string wanted(what); // a copy, because its owner may change it during a query
    const QDeadlineTimer end(maxPageWait);
    if (!FetchText(end)) return std::nullopt;
    const auto state = Query(QStringLiteral("state()"), end);
    if (!state) return std::nullopt;
    ApplyState(*state);
    const PageSpan& selected = snapshot_.selection.span;
    const TextPos start = selected.start + selected.length;
    const auto found = FindText(*textCache_, wanted, static_cast<std::size_t>(start), options);
    if (found == std::u16string::npos) return std::nullopt;
    const auto place = Query(QStringLiteral("matchAt(%1, %2)").arg(found).arg(start), end);
    if (!place) return std::nullopt;
    const QVariantList edges = place->toList();
    if (edges.size() != 3) return std::nullopt;
    return PageMatch{{static_cast<TextPos>(found), static_cast<TextPos>(what.size())},
                     edges[0].toInt(),
                     edges[1].toInt(),
                     edges[2].toInt()};
}

TextPos EngineHtmlView::StartAtTop() {
    const auto answer = Query(QStringLiteral("startAtTop()"));
    return answer ? answer->toInt() : -1;
}

std::vector<Heading> EngineHtmlView::Headings() {
    std::vector<Heading> headings;
    const auto answer = Query(QStringLiteral("headings(%1)").arg(maxHeadings));
    if (!answer) return headings;
    for (const QVariant& each : answer->toList()) {
        const QVariantList heading = each.toList();
        if (heading.size() != 3) continue;
        headings.push_back({heading[0].toInt(), std::clamp(heading[1].toInt(), 1, 6),
                            HeadingText(FromQt(heading[2].toString()))});
    }
    return headings;
}
