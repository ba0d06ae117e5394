// The HTML view on Qt WebEngine. Each page has a widget and a renderer process of its own. What the
// port can read without a query is a snapshot, updated after each command and each change that the
// engine signals.
#pragma once

#include "common/page_zoom.h"
#include "platform/qt/html_view/engine/folder_guard.h"
#include "platform/qt/html_view/engine/page_scheme.h"
#include "platform/qt/html_view/engine_view.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <memory>

class PageCalls;
class PageMonitor;
class PageWidget;
class PrintJob;
class QVariant;
class QWebEngineProfile;
class QWidget;
class ReaderPage;

class EngineHtmlView final : public QObject, public EngineView {
  public:
    EngineHtmlView(QWidget* parent, int ansiCodePage);
    ~EngineHtmlView() override;

    void Navigate(const std::u16string& path, int page) override;
    void OfferEngineChange(bool offered) override { offersEngineChange_ = offered; }
    void ExpectPlace(bool expected) override { placeExpected_ = expected; }
    void ExpectBackColor(Color color) override { backColorExpected_ = color; }
    void Clear() override;
    void ScrollTo(int left, int top) override;
    void ScrollSpanToTop(const PageSpan&) override;
    void BringToTop(const PageTop&) override;
    void Select(const PageSpan&) override;
    void SelectAll() override;
    void SetBackColor(Color) override;
    void SetTextColor(std::optional<Color>) override;
    void ScrollToPercent(int percent) override;
    PrintAnswer Print(const std::u16string& title) override;
    void SendZoomKey(bool larger) override; // the caller sends the window's key event

    bool HasBody() const override { return snapshot_.body; }
    bool HasText() const override { return snapshot_.text; }
    std::string Charset() const override { return snapshot_.charset; }
    std::u16string Title() const override { return snapshot_.title; }
    PageColors OwnColors() const override { return snapshot_.colors; }
    int ScrollTop() const override { return std::max(snapshot_.top.offset, 0); }
    PageTop Top() const override { return snapshot_.top; }
    int ZoomSteps() const override { return snapshot_.zoomSteps; }
    int ViewHeight() const override { return snapshot_.viewHeight; }
    int TopMargin() const override { return snapshot_.topMargin; }
    int Percent() const override { return snapshot_.percent; }
    PageSelection Selection() const override { return snapshot_.selection; }

    void PrepareToClose() override;
    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>&) override;
    std::u16string SelectedText() override;
    std::u16string SelectionAsHtml() override;
    std::optional<PageMatch> FindAfterSelection(std::u16string_view what, FindOptions) override;
    TextPos StartAtTop() override;
    std::vector<Heading> Headings() override;

    void SetBounds(const Rect&) override;
    void SetVisible(bool) override;
    void FocusView() override;

  private:
    struct PageSnapshot {
        bool body = false, text = false;
        std::string charset;
        std::u16string title;
        PageColors colors;
        PageTop top;
        int zoomSteps = 0; // always change together
        int viewHeight = 0, topMargin = 0, percent = 0;
        PageSelection selection;
    };
    struct PendingQuery;

    void CreatePage();
    void ConnectPage(int page);
    void ReleasePage();
    void PostForPage(std::function<void()> work);
    void OnLoadFinished(int page);
    void OnDocumentInfo(int page, const QVariant& info);
    void OnSizeChanged();
    void SendHeldKeysOncePainted();
    void SendHeldKeys();
    void OnPageGone();
    void OnResponsiveChanged();
    bool CanCall() const { return page_ && snapshot_.body; }
    void OnLink(const QUrl&);
    void NotifyJump();
    void RunCommand(PageCommand);
    void Zoom(int steps);
    void SetPageZoom();
    void OnZoomApplied(const QVariant& state, int revision);
    void Execute(const QString& expression);
    // Applies a reply to the snapshot unless it is outdated.
    std::function<void(const QVariant&)> StateHandler();
    void ScheduleStateUpdate();
    void ApplyState(const QVariant& state);
    std::optional<QVariant> Query(const QString& expression,
                                  QDeadlineTimer end = QDeadlineTimer(maxPageWait),
                                  QEventLoop::ProcessEventsFlags = QEventLoop::AllEvents);
    bool FetchText(QDeadlineTimer end);
    void CancelQuery();

    QWidget* parent_;
    int ansiCodePage_;
    FolderGuard guard_;
    PageSchemeHandler pageScheme_;
    std::string decodedCharset_; // of a page that was decoded for the engine; else ""
    std::unique_ptr<QWebEngineProfile> profile_;
    std::unique_ptr<ReaderPage> page_; // null without a page; must outlive its widget
    std::unique_ptr<PageCalls> calls_;
    std::unique_ptr<PageMonitor> monitor_;
    std::unique_ptr<PageWidget> widget_;
    QPointer<PrintJob> print_; // the last one
    PageZoom zoom_;
    PageSnapshot snapshot_;
    std::optional<std::u16string> textCache_; // of the page; fetched by the first search
    // The top before a jump within the page that is still to be reported.
    std::optional<PageTop> pendingJump_;
    int revision_ = 0; // number of commands so far
    bool placeExpected_ = true;
    std::optional<Color> backColorExpected_;
    bool loadFinished_ = false, updateScheduled_ = false, visible_ = false, focused_ = false;
    bool offersEngineChange_ = false;
    bool closing_ = false; // no more queries
    Rect bounds_;
    PendingQuery* pendingQuery_ = nullptr;
};
