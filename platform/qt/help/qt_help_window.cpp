#include "platform/qt/help/qt_help_window.h"

#include "platform/qt/handler.h"
#include "platform/qt/help/help_list.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/system/qt_clipboard.h"
#include "platform/qt/text_view/layout/view_style.h"
#include "platform/qt/text_view/qt_text_view.h"
#include "platform/qt/window/window_icon.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace {
constexpr QSize usualSize(940, 680);
constexpr int listWidth = 300;
constexpr int westernCodePage = 1252; // never needed: the pages are ASCII

// Lack of memory must not reach Qt.
void Guarded(const std::function<void()>& act) {
    CallHandler(act);
}
} // namespace

HelpWidget::HelpWidget(const HelpContents& contents)
    : contents_(contents), search_(new QLineEdit), list_(new HelpList),
      text_(std::make_unique<QtTextView>(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false); // the main window alone ends the program
    ShowIconWhenIdle(*this);
    LayOut();
    TakeColors();
    ConnectEvents();
}

HelpWidget::~HelpWidget() = default;

void HelpWidget::LayOut() {
    search_->setPlaceholderText(tr("Search the help"));
    search_->setAccessibleName(search_->placeholderText());
    search_->setClearButtonEnabled(true);
    list_->setAccessibleName(tr("Topics"));
    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins({});
    column->addWidget(search_);
    column->addWidget(list_);
    auto* halves = new QSplitter;
    halves->addWidget(left);
    halves->addWidget(text_->Widget());
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    auto* all = new QVBoxLayout(this);
    all->addWidget(halves);
    resize(usualSize.boundedTo(screen()->availableSize() * 0.9));
    halves->setSizes({listWidth, width() - listWidth});
}

void HelpWidget::ConnectEvents() {
    connect(search_, &QLineEdit::textChanged, this, &HelpWidget::ShowTypedFor);
    connect(search_, &QLineEdit::returnPressed, this, [this] { text_->FocusView(); });
    connect(list_, &QListWidget::currentRowChanged, this, &HelpWidget::ShowRow);
    connect(list_, &QListWidget::itemActivated, this, [this] { text_->FocusView(); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    auto* copy = new QShortcut(QKeySequence::Copy, text_->Widget());
    copy->setContext(Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, &HelpWidget::Copy);
}

void HelpWidget::ShowContents(const HelpContents& contents, int page) {
    contents_ = contents;
    setWindowTitle(ToQt(contents_.windowTitle));
    shownPage_ = -1;
    search_->clear();
    ShowTypedFor({});
    list_->setCurrentRow(page);
    search_->setFocus();
}

void HelpWidget::ShowTypedFor(const QString& typed) {
    Guarded([&] {
        if (typed.trimmed().isEmpty()) {
            const int page = shownPage_;
            list_->ShowTitles(contents_.titles);
            list_->setCurrentRow(page);
        } else {
            list_->ShowFindings(contents_.search(FromQt(typed)));
            if (list_->Finding(0)) list_->setCurrentRow(0);
        }
    });
}

void HelpWidget::ShowRow(int row) {
    if (row < 0) return;
    Guarded([&] {
        const HelpFinding* finding = list_->Finding(row);
        ShowPage(finding ? finding->page : row);
        if (!finding) return;
        text_->Select(finding->place.start, finding->place.length);
        // The title above the first lines stays in view.
        if (finding->place.start > TextPos(finding->title.size()) + 200)
            text_->ScrollLineToTop(finding->place.start);
    });
}

void HelpWidget::ShowPage(int page) {
    if (page < 0 || page >= std::ssize(contents_.titles)) return;
    text_->LoadRichText(contents_.page(page), westernCodePage);
    text_->SetName(contents_.titles[std::size_t(page)]);
    shownPage_ = page;
}

void HelpWidget::TakeColors() {
    text_->SetBackColor(FromQColor(palette().color(QPalette::Base)));
    text_->SetAutoColor(true);
}

void HelpWidget::Copy() const {
    if (text_->SelLength() == 0) return;
    QtClipboard().SetText(text_->TextRange(text_->SelStart(), text_->SelLength()));
}

// From the search field and the list the page can be turned, and the list be entered.
void HelpWidget::keyPressEvent(QKeyEvent* event) {
    QWidget* text = text_->Widget();
    const bool turnsPage = event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp;
    if (turnsPage && search_->hasFocus() && event->modifiers() == Qt::NoModifier)
        QCoreApplication::sendEvent(text, event);
    else if (event->key() == Qt::Key_Down && search_->hasFocus())
        list_->setFocus();
    else
        QWidget::keyPressEvent(event);
}

void HelpWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && text_) TakeColors();
}

QtHelpWindow::~QtHelpWindow() {
    delete widget_;
}

void QtHelpWindow::Show(const HelpContents& contents, int page) {
    if (widget_ && widget_->isHidden()) delete widget_; // closed, and about to go
    if (!widget_) widget_ = new HelpWidget(contents);
    widget_->ShowContents(contents, page);
    widget_->show();
    Raise();
}

bool QtHelpWindow::Raise() {
    if (!widget_ || widget_->isHidden()) return false;
    widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
    widget_->raise();
    widget_->activateWindow();
    return true;
}
