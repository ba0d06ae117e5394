#include "platform/qt/window/qt_menu_bar.h"

#include "platform/qt/window/menu_bar_focus.h"
#include "platform/qt/window/menu_style.h"
#include "platform/qt/window/model_menu.h"
#include "platform/qt/window/qt_window.h"
#include "platform/shared/call_handler.h"

#include <QApplication>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>

QtMenuBar::QtMenuBar(QtWindow& window, std::function<QPoint()> contextMenuPosition)
    : window_(window), contextMenuPosition_(std::move(contextMenuPosition)),
      bar_(new QMenuBar(&window)) {
    connect(bar_, &QMenuBar::triggered, this, &QtMenuBar::OnTriggered);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, ActivateFocusedWindow);
    window_.SetMenuBar(bar_);
}

QtMenuBar::~QtMenuBar() = default;

void QtMenuBar::Attach(const std::vector<MenuArray*>& topLevel, MenuEvents events) {
    bar_->clear();
    qDeleteAll(menus_);
    menus_.clear();
    topLevel_ = topLevel;
    events_ = std::move(events);
    for (MenuArray* array : topLevel_) {
        QMenu* menu = AddMenu(bar_, (*array)[0], *array);
        bar_->addMenu(menu);
        menus_.push_back(menu);
    }
    Refresh();
}

void QtMenuBar::Refresh() {
    for (std::size_t i = 0; i < topLevel_.size(); ++i) {
        const MenuItem& item = (*topLevel_[i])[0];
        QAction* action = menus_[i]->menuAction();
        action->setText(NativeCaption(item));
        action->setEnabled(item.enabled);
        action->setVisible(item.visible);
    }
    window_.LayOut();
}

void QtMenuBar::OnTriggered(const QAction* action) {
    if (const auto* item = dynamic_cast<const ItemAction*>(action))
        CallHandler(events_.onClick, item->array, item->index);
}

// Queued, because opening a menu calls a handler of the form.
void QtMenuBar::ShowMenu(MenuArray& topLevel) {
    const auto show = [this, &topLevel] {
        const auto position = std::ranges::find(topLevel_, &topLevel) - topLevel_.begin();
        if (position == std::ssize(topLevel_) || QApplication::activePopupWidget()) return;
        openedByProgram_ = true;
        bar_->setActiveAction(menus_[static_cast<std::size_t>(position)]->menuAction());
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

// Queued, because only then is it known whether the bar has the focus or the next menu has opened.
void QtMenuBar::OnMenuHidden() {
    const auto leave = [this] {
        if (!openedByProgram_ || QApplication::activePopupWidget()) return;
        openedByProgram_ = false;
        window_.RestoreViewFocus();
    };
    if (openedByProgram_) QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
}

void QtMenuBar::ShowContextMenu(const std::vector<MenuArray*>& items) {
    contextMenu_ = std::make_unique<ModelMenu>(&window_);
    ApplyStyle(*contextMenu_);
    for (MenuArray* array : items)
        contextMenu_->AddItems(*array);
    connect(contextMenu_.get(), &QMenu::triggered, this, &QtMenuBar::OnTriggered);
    contextMenu_->popup(contextMenuPosition_());
}

// Items are created when the menu opens.
QMenu* QtMenuBar::AddMenu(QWidget* parent, const MenuItem& item, MenuArray& array) {
    auto* menu = new ModelMenu(NativeCaption(item), parent);
    const bool isTopLevel = parent == bar_;
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &array, isTopLevel] {
        ApplyStyle(*menu);
        if (isTopLevel) CallHandler(events_.onOpening, array);
        Populate(*menu, array);
    });
    if (isTopLevel) connect(menu, &QMenu::aboutToHide, this, &QtMenuBar::OnMenuHidden);
    return menu;
}

void QtMenuBar::ApplyStyle(QMenu& menu) {
    if (!style_) style_ = std::make_unique<MenuStyle>();
    if (menu.style() == style_.get()) return;
    menu.setStyle(style_.get());
    menu.setSeparatorsCollapsible(false); // separators are shown and hidden by the model
}

void QtMenuBar::Populate(ModelMenu& menu, const MenuArray& array) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (MenuArray* child : array.children) {
        if (child->children.empty())
            menu.AddItems(*child);
        else if (const MenuItem& item = (*child)[0]; item.visible)
            ApplyState(*menu.addMenu(AddMenu(&menu, item, *child)), item, menu.font());
    }
}
