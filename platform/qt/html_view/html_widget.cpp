#include "platform/qt/html_view/html_widget.h"

#include "common/keys.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/window/key_codes.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMenu>

HtmlWidget::HtmlWidget(QWidget* parent, const Files& files)
    : ReadableWidget(parent), pane_(*this, Lines(), Pictures(), files), notice_(new QLabel(this)) {
    SetReadable(pane_);
    notice_->setAlignment(Qt::AlignCenter);
    notice_->setWordWrap(true);
    notice_->setAutoFillBackground(true);
    notice_->hide();
    onContextMenu = [this] { ShowContextMenu(); };
    hide();
}

void HtmlWidget::ShowNotice(const QString& text) {
    notice_->setText(text);
    notice_->setVisible(!text.isEmpty());
    notice_->raise();
}

// A page is called by its title.
void HtmlWidget::OnTextChanged() {
    if (pane_.Page()) setAccessibleName(ToQt(pane_.Page()->Title()));
    ReadableWidget::OnTextChanged();
}

void HtmlWidget::resizeEvent(QResizeEvent* event) {
    ReadableWidget::resizeEvent(event);
    notice_->setGeometry(rect());
}

void HtmlWidget::keyPressEvent(QKeyEvent* event) {
    const int code =
        MainBlockZoomKey(VirtualKeyCode(event->key(), event->modifiers(), event->nativeScanCode()));
    const int shift = ShiftMaskOf(event->modifiers());
    const bool zooms = (shift & CtrlKey) && !(shift & AltKey) && onZoomKey && onZoomKey(code);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (zooms || (isReturn && shift == 0 && onOtherKey && onOtherKey('\r', false)))
        return event->accept();
    ReadableWidget::keyPressEvent(event);
}

// Tab goes from link to link, and on to the next widget after the last one.
bool HtmlWidget::focusNextPrevChild(bool next) {
    if (onOtherKey && onOtherKey('\t', !next)) return true;
    return ReadableWidget::focusNextPrevChild(next);
}

// Commands are queued: printing handles events, of which one deletes the menu that was chosen from.
void HtmlWidget::ShowContextMenu() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& caption, PageCommand command, bool enabled) {
        QAction* action = menu->addAction(caption);
        action->setEnabled(enabled);
        const auto choose = [this, command] {
            if (onCommand) onCommand(command);
        };
        connect(action, &QAction::triggered, this, choose, Qt::QueuedConnection);
        return action;
    };
    const bool hasText = pane_.Page() && pane_.Page()->Length() > 0;
    add(tr("&Copy"), PageCommand::Copy, pane_.SelStart() < pane_.SelEnd());
    add(tr("Select &All"), PageCommand::SelectAll, hasText);
    add(tr("&Find..."), PageCommand::Find, hasText);
    add(tr("&Open..."), PageCommand::Open, true);
    add(tr("&Print..."), PageCommand::Print, hasText);
    if (offersEngineChange_) {
        menu->addSeparator();
        add(tr("&Browser View\tCtrl+Shift+B"), PageCommand::ChangeEngine, true)->setCheckable(true);
    }
    menu->popup(ContextMenuPoint());
}
