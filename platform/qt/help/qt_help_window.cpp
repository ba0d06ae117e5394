#include "platform/qt/help/qt_help_window.h"

#include "common/text.h"
#include "platform/qt/base/qt_color.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/help/help_list.h"
#include "platform/qt/system/qt_clipboard.h"
#include "platform/qt/text_view/qt_text_view.h"
#include "platform/qt/window/window_icon.h"
#include "platform/shared/call_handler.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace {
constexpr QSize defaultSize(940, 680);
constexpr int listWidth = 300;
constexpr int westernCodePage = 1252; // irrelevant: the pages are ASCII
} // namespace

HelpWidget::HelpWidget(const HelpContents& contents)
    : contents_(contents), search_(new QLineEdit), list_(new HelpList),
      text_(std::make_unique<QtTextView>(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false); // only closing the main window quits
    SetIconWhenIdle(*this);
    CreateLayout();
    ApplyPalette();
    ConnectSignals();
}

HelpWidget::~HelpWidget() = default;

void HelpWidget::CreateLayout() {
    search_->setPlaceholderText(tr("Search the help"));
    search_->setAccessibleName(search_->placeholderText());
    search_->setClearButtonEnabled(true);
    list_->setAccessibleName(tr("Topics"));
    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins({});
    column->addWidget(search_);
    column->addWidget(list_);
    auto* splitter = new QSplitter;
    splitter->addWidget(left);
    splitter->addWidget(text_->Widget());
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* all = new QVBoxLayout(this);
    all->addWidget(splitter);
    resize(defaultSize.boundedTo(screen()->availableSize() * 0.9));
    splitter->setSizes({listWidth, width() - listWidth});
}

void HelpWidget::ConnectSignals() {
    connect(search_, &QLineEdit::textChanged, this, &HelpWidget::UpdateList);
    connect(search_, &QLineEdit::returnPressed, this, [this] { text_->FocusView(); });
    connect(list_, &QListWidget::currentRowChanged, this, &HelpWidget::OnRowChanged);
    connect(list_, &QListWidget::itemActivated, this, [this] { text_->FocusView(); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    text_->SetLinkHandler(
        [this](const std::u16string& address) { CallGuarded([&] { FollowLink(address); }); });
    auto* copy = new QShortcut(QKeySequence::Copy, text_->Widget());
    copy->setContext(Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, &HelpWidget::Copy);
}

void HelpWidget::ShowContents(const HelpContents& contents, int page) {
    contents_ = contents;
    setWindowTitle(ToQt(contents_.windowTitle));
    shownPage_ = -1;
    search_->clear();
    UpdateList({});
    list_->setCurrentRow(page);
    search_->setFocus();
}

void HelpWidget::UpdateList(const QString& typed) {
    CallGuarded([&] {
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

void HelpWidget::OnRowChanged(int row) {
    if (row < 0) return;
    CallGuarded([&] {
        const HelpFinding* finding = list_->Finding(row);
        ShowPage(finding ? finding->page : row);
        if (!finding) return;
        text_->Select(finding->place.start, finding->place.length);
        // Keeps the title in view if the match is near it.
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

void HelpWidget::FollowLink(const std::u16string& address) {
    if (address.empty()) return;
    search_->clear(); // all pages are listed
    list_->setCurrentRow(WholeNumber(address));
}

void HelpWidget::ApplyPalette() {
    text_->SetBackColor(FromQColor(palette().color(QPalette::Base)));
    text_->SetAutoColor(true);
}

void HelpWidget::Copy() const {
    if (text_->SelLength() == 0) return;
    QtClipboard().SetText(text_->TextRange(text_->SelStart(), text_->SelLength()));
}

// Page Up and Page Down scroll the page from the search field, and Down moves to the list.
void HelpWidget::keyPressEvent(QKeyEvent* event) {
    QWidget* text = text_->Widget();
    const bool turnsPage = event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp;
    if (turnsPage && search_->hasFocus() && event->modifiers() == Qt::NoModifier)
        QCoreApplication::sendEvent(text, event);
    else if (event->key() == Qt::Key_Down && search_->hasFocus())
        list_->setFocus();
    else if (text->hasFocus() && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        FollowLink(text_->LinkAtCaret());
    else
        QWidget::keyPressEvent(event);
}

void HelpWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && text_) ApplyPalette();
}

QtHelpWindow::~QtHelpWindow() {
    delete widget_;
}

void QtHelpWindow::Show(const HelpContents& contents, int page) {
    if (widget_ && widget_->isHidden()) delete widget_; // closed, with its deletion pending
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
