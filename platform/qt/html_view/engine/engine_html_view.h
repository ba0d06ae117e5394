// The HTML view on Qt WebEngine. A page lives in a widget and an engine process of its own; what
// the port keeps of it is asked for after each order and each change that the engine tells of.
#pragma once

#include "platform/qt/html_view/engine/folder_guard.h"
#include "platform/qt/html_view/engine/html_plug_in.h"
#include "platform/qt/html_view/engine/zoom_ladder.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>

#include <memory>

class PageCalls;
class PageWatch;
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
    void Clear() override;
    void ScrollTo(int left, int top) override;
    void ScrollSpanToTop(const PageSpan&) override;
    void Select(const PageSpan&) override;
    void SelectAll() override;
    void SetBackColor(std::uint32_t redGreenBlue) override;
    void SetTextColor(std::optional<std::uint32_t> redGreenBlue) override;
    void SendZoomKey(bool larger) override; // the caller tells the window

    bool HasBody() const override { return kept_.body; }
    bool HasText() const override { return kept_.text; }
    std::string Charset() const override { return kept_.charset; }
    std::u16string Title() const override { return kept_.title; }
    PageColors OwnColors() const override { return kept_.colors; }
    int ScrollTop() const override { return kept_.scrollTop; }
    int ZoomSteps() const override { return kept_.zoomSteps; }
    int ViewHeight() const override { return kept_.viewHeight; }
    int TopMargin() const override { return kept_.topMargin; }
    PageSelection Selection() const override { return kept_.selection; }

    std::vector<std::u16string> TextsOf(const std::vector<PageSpan>&) override;
    std::u16string SelectedText() override;
    std::u16string SelectionAsHtml() override;
    std::optional<PageMatch> FindBehindSelection(std::u16string_view what, FindOptions) override;
    TextPos StartAtTop() override;

    void SetBounds(const Rect&) override;
    void SetVisible(bool) override;
    void FocusView() override;

  protected:
    bool eventFilter(QObject* window, QEvent*) override; // ends a wait when the window closes

  private:
    struct Kept {
        bool body = false, text = false;
        std::string charset;
        std::u16string title;
        PageColors colors;
        int scrollTop = 0, zoomSteps = 0; // change together
        int viewHeight = 0, topMargin = 0;
        PageSelection selection;
    };
    struct Wait;

    void MakePage();
    void ConnectPage(int page);
    void LeavePage();
    void Finished(int page);
    void Loaded(int page, const QVariant& facts);
    void Gone();
    void TellAnswering();
    bool CanCall() const { return page_ && kept_.body; }
    void FollowLink(const QUrl&);
    void TellJump();
    void RunCommand(PageCommand);
    void Zoom(int steps);
    void SetPageZoom();
    void Zoomed(const QVariant& state, int changes);
    void Order(const QString& expression);
    std::function<void(const QVariant&)> StateTaker(); // keeps what an answer says
    void Refresh();
    void TakeState(const QVariant& state);
    std::optional<QVariant> Ask(const QString& expression,
                                QDeadlineTimer end = QDeadlineTimer(maxPageWait),
                                QEventLoop::ProcessEventsFlags = QEventLoop::AllEvents);
    bool FetchText(QDeadlineTimer end);
    void EndWait();

    QWidget* parent_;
    int ansiCodePage_;
    FolderGuard guard_;
    std::unique_ptr<QWebEngineProfile> profile_;
    std::unique_ptr<ReaderPage> page_; // null without a page; lives longer than its widget
    std::unique_ptr<PageCalls> calls_;
    std::unique_ptr<PageWatch> watch_;
    std::unique_ptr<PageWidget> widget_;
    QPointer<PrintJob> print_; // the last one
    ZoomLadder zoom_;
    Kept kept_;
    std::optional<std::u16string> wholeText_; // of the page, once a search has needed it
    std::optional<int> jumpedFrom_; // offset before a jump in the page that is still to be told
    int changes_ = 0;               // ordered so far
    bool finished_ = false, refreshing_ = false, visible_ = false, focused_ = false;
    bool closing_ = false; // the window's last wait is over
    Rect bounds_;
    Wait* wait_ = nullptr;
};
