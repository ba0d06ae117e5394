#include "platform/qt/html_view/engine/engine_html_view.h"

#include "common/utf.h"
#include "platform/qt/handler.h"
#include "platform/qt/html_view/engine/engine_profile.h"
#include "platform/qt/html_view/engine/file_address.h"
#include "platform/qt/html_view/engine/page_calls.h"
#include "platform/qt/html_view/engine/page_watch.h"
#include "platform/qt/html_view/engine/page_widget.h"
#include "platform/qt/html_view/engine/print_job.h"
#include "platform/qt/html_view/engine/reader_page.h"
#include "platform/qt/qt_text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>

#include <utility>

EngineHtmlView::EngineHtmlView(QWidget* parent, int ansiCodePage)
    : parent_(parent), ansiCodePage_(ansiCodePage) {
    parent_->window()->installEventFilter(this);
}

EngineHtmlView::~EngineHtmlView() {
    LeavePage();
    // Pages have to go before what they share.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void EngineHtmlView::Navigate(const std::u16string& path, int page) {
    LeavePage();
    const std::string bytes = Utf16ToUtf8(path);
    guard_.SetBook(bytes);
    MakePage();
    ConnectPage(page);
    page_->Load(FileAddress(bytes));
}

void EngineHtmlView::Clear() {
    LeavePage();
    guard_.SetBook({});
}

void EngineHtmlView::MakePage() {
    if (!profile_) profile_ = MakeEngineProfile(guard_, ansiCodePage_);
    page_ = std::make_unique<ReaderPage>(profile_.get(), guard_);
    calls_ = std::make_unique<PageCalls>(*page_);
    watch_ = std::make_unique<PageWatch>(*page_);
    widget_ = std::make_unique<PageWidget>(page_.get(), parent_);
    SetBounds(bounds_);
    SetVisible(visible_);
    if (focused_) widget_->setFocus();
}

void EngineHtmlView::ConnectPage(int page) {
    page_->onLink = [this](const QUrl& address) { FollowLink(address); };
    connect(page_.get(), &QWebEnginePage::loadFinished, this, [this, page](bool done) {
        if (done) Finished(page);
    });
    const auto gone = [this, dead = page_.get()] {
        if (dead == page_.get()) Gone(); // it may have been left meanwhile
    };
    connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this, gone,
            Qt::QueuedConnection);
    watch_->onChange = [this] { TellAnswering(); };
    watch_->onTooLarge = [this, gone] { // which ends the watch
        QMetaObject::invokeMethod(page_.get(), gone, Qt::QueuedConnection);
    };
    // Within the page, which has not scrolled yet.
    connect(page_.get(), &QWebEnginePage::urlChanged, this, [this] {
        if (!kept_.body) return;
        jumpedFrom_ = ScrollTop();
        TellJump();
    });
    connect(page_.get(), &QWebEnginePage::scrollPositionChanged, this, [this] { Refresh(); });
    connect(page_.get(), &QWebEnginePage::contentsSizeChanged, this, [this] { Refresh(); });
    connect(page_.get(), &QWebEnginePage::selectionChanged, this, [this] { Refresh(); });
    widget_->onTouched = [this] { Refresh(); };
    widget_->onZoomKey = [this](int steps) { Zoom(steps); };
    widget_->onCommand = [this](PageCommand command) { RunCommand(command); };
    widget_->hasSelection = [this] { return kept_.selection.span.length > 0; };
    widget_->hasText = [this] { return kept_.text; };
    widget_->onContextPress = [this](QPoint point) {
        const double factor = zoom_.Factor();
        Order(QStringLiteral("placeCaret(%1, %2)").arg(point.x() / factor).arg(point.y() / factor));
    };
}

// May be called from an event of the page itself.
void EngineHtmlView::LeavePage() {
    EndWait();
    kept_ = {};
    wholeText_.reset();
    jumpedFrom_.reset();
    zoom_ = {};
    refreshing_ = finished_ = false;
    if (!page_) return;
    if (print_) print_->PageLeft();
    page_->disconnect(this);
    focused_ = widget_->isAncestorOf(widget_->window()->focusWidget());
    page_->TakeProcessAlong();
    widget_->hide();
    calls_.reset();
    watch_.reset();
    widget_.release()->deleteLater();
    page_.release()->deleteLater();
}

void EngineHtmlView::Finished(int page) {
    if (std::exchange(finished_, true)) return;
    calls_->LoadScript();
    SetPageZoom();
    calls_->Call(QStringLiteral("facts()"),
                 [this, page, alive = QPointer<QObject>(page_.get())](const QVariant& facts) {
                     if (alive && alive == page_.get()) Loaded(page, facts);
                 });
}

void EngineHtmlView::Loaded(int page, const QVariant& facts) {
    const QVariantList list = facts.toList();
    if (list.size() == 6) { // a document that is no page has no body
        kept_.body = true;
        kept_.charset = list[0].toString().toStdString();
        kept_.title = FromQt(list[1].toString());
        kept_.text = list[2].toBool();
        kept_.colors = {list[3].toUInt(), list[4].toUInt()};
        TakeState(list[5]);
    }
    // Not from within the engine's own call: it takes no other one until that has returned, and who
    // is told may ask.
    QMetaObject::invokeMethod(
        page_.get(),
        [this, page] {
            CallHandler(onLoaded, page, FromQt(page_->url().toString(QUrl::FullyEncoded)));
        },
        Qt::QueuedConnection);
}

void EngineHtmlView::Gone() {
    if (!page_) return;
    const Kept last = kept_;
    LeavePage();
    kept_ = last;
    CallHandler(onGone);
}

void EngineHtmlView::TellAnswering() {
    const bool answers = !watch_->IsSilent();
    if (!answers) EndWait();
    widget_->SetDeaf(!answers); // else it would act on all the keys when it answers again
    CallHandler(onAnswering, answers);
}

void EngineHtmlView::FollowLink(const QUrl& address) {
    const auto path = LocalPathOf(address);
    const std::u16string url = FromQt(address.toString(QUrl::FullyEncoded));
    // Not from within the engine's own question whether to go there.
    QMetaObject::invokeMethod(
        page_.get(),
        [this, url, path] { CallHandler(onLink, url, path ? Utf8ToUtf16(*path, u'?') : u""); },
        Qt::QueuedConnection);
}

// Not from within the engine's own call, and not while a question waits: its end comes back here.
void EngineHtmlView::TellJump() {
    if (!jumpedFrom_ || !page_) return;
    QMetaObject::invokeMethod(
        page_.get(),
        [this] {
            if (wait_ || !jumpedFrom_) return;
            CallHandler(onJump, *std::exchange(jumpedFrom_, std::nullopt));
        },
        Qt::QueuedConnection);
}

void EngineHtmlView::RunCommand(PageCommand command) {
    if (command == PageCommand::Print) {
        print_ = new PrintJob(*widget_);
        print_->AskHow();
    }
    CallHandler(onCommand, command);
}

void EngineHtmlView::Zoom(int steps) {
    if (!page_ || !kept_.body) return; // a page comes at normal size
    zoom_.Move(steps);
    SetPageZoom();
}

void EngineHtmlView::SetPageZoom() {
    calls_->SetZoom(
        zoom_.Factor(), widget_->devicePixelRatioF(), zoom_.Steps(),
        [this, changes = changes_, alive = QPointer<QObject>(page_.get())](const QVariant& state) {
            if (alive && alive == page_.get() && kept_.body) Zoomed(state, changes);
        });
}

void EngineHtmlView::Zoomed(const QVariant& state, int changes) {
    if (changes == changes_) TakeState(state);
    // Not from within the engine's own call.
    QMetaObject::invokeMethod(
        page_.get(),
        [this] {
            if (kept_.zoomSteps == zoom_.Steps()) CallHandler(onZoomed);
        },
        Qt::QueuedConnection);
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
