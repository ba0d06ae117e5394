#include "platform/qt/html_view/engine/engine_html_view.h"

#include "common/colors.h"
#include "common/utf.h"
#include "platform/qt/base/qt_color.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/html_view/engine/engine_profile.h"
#include "platform/qt/html_view/engine/page_calls.h"
#include "platform/qt/html_view/engine/page_monitor.h"
#include "platform/qt/html_view/engine/page_url.h"
#include "platform/qt/html_view/engine/page_widget.h"
#include "platform/qt/html_view/engine/print_job.h"
#include "platform/qt/html_view/engine/reader_page.h"
#include "platform/shared/call_handler.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>
#include <QWebEngineScript>

#include <utility>

namespace {
QUrl FileUrlOf(const std::string& path) {
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
}
} // namespace

EngineHtmlView::EngineHtmlView(QWidget* parent, int ansiCodePage)
    : parent_(parent), ansiCodePage_(ansiCodePage),
      pageScheme_(guard_, [this](const std::string& path) {
          return readUndeclared ? readUndeclared(path) : std::nullopt;
      }) {}

EngineHtmlView::~EngineHtmlView() {
    ReleasePage();
    // Pages must be deleted before their profile.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void EngineHtmlView::Navigate(const std::u16string& path, int page) {
    ReleasePage();
    const std::string bytes = Utf16ToUtf8(path);
    guard_.SetBook(bytes);
    CreatePage();
    ConnectPage(page);
    const std::optional<std::string> decoded = pageScheme_.Prepare(bytes);
    decodedCharset_ = decoded.value_or("");
    page_->Load(decoded ? WithPageScheme(FileUrlOf(bytes)) : FileUrlOf(bytes));
}

void EngineHtmlView::Clear() {
    ReleasePage();
    guard_.SetBook({});
}

void EngineHtmlView::CreatePage() {
    if (!profile_) {
        profile_ = CreateEngineProfile(guard_, ansiCodePage_);
        pageScheme_.InstallIn(*profile_);
    }
    page_ = std::make_unique<ReaderPage>(profile_.get(), guard_);
    if (backColorExpected_) page_->ExpectBackColor(ToQColor(*backColorExpected_));
    calls_ = std::make_unique<PageCalls>(*page_);
    monitor_ = std::make_unique<PageMonitor>(*page_);
    widget_ = std::make_unique<PageWidget>(page_.get(), parent_);
    SetBounds(bounds_);
    SetVisible(visible_);
    if (focused_) widget_->setFocus();
}

void EngineHtmlView::ConnectPage(int page) {
    page_->onLink = [this](const QUrl& address) { OnLink(address); };
    connect(page_.get(), &QWebEnginePage::loadFinished, this, [this, page](bool done) {
        if (done) OnLoadFinished(page);
    });
    const auto gone = [this] { PostForPage([this] { OnPageGone(); }); };
    connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this, gone);
    monitor_->onResponsiveChanged = [this] { OnResponsiveChanged(); };
    monitor_->onMemoryExceeded = gone; // the monitor stops after it
    // Navigation within the page, which has not scrolled yet.
    connect(page_.get(), &QWebEnginePage::urlChanged, this, [this] {
        if (!snapshot_.body) return;
        pendingJump_ = snapshot_.top;
        NotifyJump();
    });
    connect(page_.get(), &QWebEnginePage::scrollPositionChanged, this,
            [this] { ScheduleStateUpdate(); });
    connect(page_.get(), &QWebEnginePage::contentsSizeChanged, this, [this] { OnSizeChanged(); });
    connect(page_.get(), &QWebEnginePage::selectionChanged, this,
            [this] { ScheduleStateUpdate(); });
    widget_->onInputReleased = [this] { ScheduleStateUpdate(); };
    widget_->onZoomKey = [this](int steps) { Zoom(steps); };
    widget_->offersEngineChange = [this] { return offersEngineChange_; };
    // Queued: a command may handle events, of which one deletes the widget, and its menu with it.
    widget_->onCommand = [this](PageCommand command) {
        QMetaObject::invokeMethod(
            this, [this, command] { RunCommand(command); }, Qt::QueuedConnection);
    };
    widget_->hasSelection = [this] { return snapshot_.selection.span.length > 0; };
    widget_->hasText = [this] { return snapshot_.text; };
    widget_->onContextClick = [this](QPoint point) {
        const double factor = zoom_.Percent() / 100.0;
        Execute(
            QStringLiteral("placeCaret(%1, %2)").arg(point.x() / factor).arg(point.y() / factor));
    };
}

// May be called from a signal of the page itself.
void EngineHtmlView::ReleasePage() {
    CancelQuery();
    snapshot_ = {};
    textCache_.reset();
    pendingJump_.reset();
    zoom_ = {};
    updateScheduled_ = loadFinished_ = false;
    if (!page_) return;
    if (print_) print_->OnPageReleased();
    page_->disconnect(this);
    focused_ = widget_->isAncestorOf(widget_->window()->focusWidget());
    page_->KillProcessWhenDestroyed();
    widget_->hide();
    calls_.reset();
    monitor_.reset();
    widget_.release()->deleteLater();
    page_.release()->deleteLater();
}

// Unless there is another page by then, or none.
void EngineHtmlView::PostForPage(std::function<void()> work) {
    QMetaObject::invokeMethod(
        page_.get(),
        [this, page = page_.get(), work = std::move(work)] {
            if (page == page_.get()) work();
        },
        Qt::QueuedConnection);
}

void EngineHtmlView::OnLoadFinished(int page) {
    if (std::exchange(loadFinished_, true)) return;
    calls_->LoadScript();
    SetPageZoom();
    calls_->Call(QStringLiteral("documentInfo()"),
                 [this, page, alive = QPointer<QObject>(page_.get())](const QVariant& info) {
                     if (alive && alive == page_.get()) OnDocumentInfo(page, info);
                 });
}

void EngineHtmlView::OnDocumentInfo(int page, const QVariant& info) {
    const QVariantList list = info.toList();
    if (list.size() == 6) { // a document other than HTML has no body
        snapshot_.body = true;
        snapshot_.charset =
            decodedCharset_.empty() ? list[0].toString().toStdString() : decodedCharset_;
        snapshot_.title = FromQt(list[1].toString());
        snapshot_.text = list[2].toBool();
        snapshot_.colors = {SwapColorOrder(list[3].toUInt()), SwapColorOrder(list[4].toUInt())};
        ApplyState(list[5]);
    }
    // Queued: within its own callback the engine does not start another script, and the handler may
    // query the page.
    PostForPage([this, page, alive = QPointer<QObject>(page_.get())] {
        CallHandler(onLoaded, page,
                    FromQt(WithFileScheme(page_->url()).toString(QUrl::FullyEncoded)));
        if (alive && alive == page_.get()) SendHeldKeys();
    });
}

void EngineHtmlView::OnSizeChanged() {
    ScheduleStateUpdate();
    if (page_ && !loadFinished_ && !placeExpected_) SendHeldKeysOncePainted();
}

// Until the first picture of a document the engine drops keys.
void EngineHtmlView::SendHeldKeysOncePainted() {
    page_->runJavaScript(QStringLiteral("performance.getEntriesByType('paint').length"),
                         QWebEngineScript::ApplicationWorld,
                         [this, alive = QPointer<QObject>(page_.get())](const QVariant& pictures) {
                             if (alive && alive == page_.get() && pictures.toInt() > 0)
                                 PostForPage([this] { widget_->SendHeldKeys(); });
                         });
}

// Once the page is at the place that the handler of its load has brought it to: the engine runs
// scripts in their order, so that any answer comes after that. Queued: this runs in its callback.
void EngineHtmlView::SendHeldKeys() {
    calls_->Call(QStringLiteral("pixelRatio()"),
                 [this, alive = QPointer<QObject>(page_.get())](const QVariant&) {
                     if (alive && alive == page_.get())
                         PostForPage([this] { widget_->SendHeldKeys(); });
                 });
}

void EngineHtmlView::OnPageGone() {
    if (!page_) return;
    const PageSnapshot last = snapshot_;
    ReleasePage();
    snapshot_ = last;
    CallHandler(onGone);
}

void EngineHtmlView::OnResponsiveChanged() {
    const bool responsive = !monitor_->IsUnresponsive();
    if (!responsive) CancelQuery();
    widget_->SetKeysBlocked(
        !responsive); // else it would process all queued keys once it responds again
    CallHandler(onResponsiveChanged, responsive);
}

void EngineHtmlView::OnLink(const QUrl& address) {
    const auto path = LocalPathOf(address);
    const std::u16string url = FromQt(WithFileScheme(address).toString(QUrl::FullyEncoded));
    // Queued: this is called from acceptNavigationRequest().
    PostForPage(
        [this, url, path] { CallHandler(onLink, url, path ? Utf8ToUtf16(*path, u'?') : u""); });
}

// Queued: this runs in a callback of the engine. Not during a query, whose end calls this again.
void EngineHtmlView::NotifyJump() {
    if (!pendingJump_ || !page_) return;
    PostForPage([this] {
        if (pendingQuery_ || !pendingJump_) return;
        CallHandler(onJump, *std::exchange(pendingJump_, std::nullopt));
    });
}

PrintAnswer EngineHtmlView::Print(const std::u16string&) {
    if (!widget_ || !snapshot_.text) return {};
    print_ = new PrintJob(*widget_);
    print_->ShowDialog();
    return {};
}

void EngineHtmlView::RunCommand(PageCommand command) {
    if (command == PageCommand::Print) Print({});
    CallHandler(onCommand, command);
}

void EngineHtmlView::Zoom(int steps) {
    if (!page_ || !snapshot_.body) return; // each page loads at its normal size
    zoom_.Move(steps);
    SetPageZoom();
}

void EngineHtmlView::SetPageZoom() {
    calls_->SetZoom(zoom_.Percent() / 100.0, widget_->devicePixelRatioF(), zoom_.Steps(),
                    [this, revision = revision_,
                     alive = QPointer<QObject>(page_.get())](const QVariant& state) {
                        if (alive && alive == page_.get() && snapshot_.body)
                            OnZoomApplied(state, revision);
                    });
}

void EngineHtmlView::OnZoomApplied(const QVariant& state, int revision) {
    if (revision == revision_) ApplyState(state);
    // Queued: this runs in a callback of the engine.
    PostForPage([this] {
        if (snapshot_.zoomSteps == zoom_.Steps()) CallHandler(onZoomed);
    });
}

void EngineHtmlView::SendZoomKey(bool larger) {
    Zoom(larger ? 1 : -1);
}

void EngineHtmlView::SetBounds(const Rect& bounds) {
    bounds_ = bounds;
    if (widget_) widget_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
}

void EngineHtmlView::SetVisible(bool visible) {
    visible_ = visible;
    if (widget_) widget_->setVisible(visible);
}

void EngineHtmlView::FocusView() {
    if (widget_) widget_->setFocus();
}
