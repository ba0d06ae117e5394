#include "platform/qt/window/qt_menu_bar.h"

#include "platform/qt/handler.h"
#include "platform/qt/window/active_window.h"
#include "platform/qt/window/menu_style.h"
#include "platform/qt/window/model_menu.h"
#include "platform/qt/window/qt_window.h"

#include <QApplication>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>

QtMenuBar::QtMenuBar(QtWindow& window, std::function<QPoint()> contextPoint)
    : window_(window), contextPoint_(std::move(contextPoint)), bar_(new QMenuBar(&window)) {
    connect(bar_, &QMenuBar::triggered, this, &QtMenuBar::Choose);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, TakeNoteOfActiveWindow);
    window_.AdoptMenuBar(bar_);
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

void QtMenuBar::Choose(const QAction* action) {
    if (const auto* item = dynamic_cast<const ItemAction*>(action))
        CallHandler(events_.onClick, item->array, item->index);
}

// The menu opens when the event loop comes round: its own opening is an event for the form.
void QtMenuBar::ShowMenu(MenuArray& topLevel) {
    const auto show = [this, &topLevel] {
        const auto place = std::ranges::find(topLevel_, &topLevel) - topLevel_.begin();
        if (place == std::ssize(topLevel_) || QApplication::activePopupWidget()) return;
        openedByProgram_ = true;
        bar_->setActiveAction(menus_[static_cast<std::size_t>(place)]->menuAction());
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

// The bar takes the keyboard after its menu has gone, or the menu beside it opens.
void QtMenuBar::LeaveMenu() {
    const auto leave = [this] {
        if (!openedByProgram_ || QApplication::activePopupWidget()) return;
        openedByProgram_ = false;
        window_.TakeKeyboardFromBar();
    };
    if (openedByProgram_) QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
}

void QtMenuBar::ShowContextMenu(const std::vector<MenuArray*>& items) {
    contextMenu_ = std::make_unique<ModelMenu>(&window_);
    PrepareMenu(*contextMenu_);
    for (MenuArray* array : items)
        contextMenu_->AddArray(*array);
    connect(contextMenu_.get(), &QMenu::triggered, this, &QtMenuBar::Choose);
    contextMenu_->popup(contextPoint_());
}

// A menu or submenu without its items: these are made when it opens.
QMenu* QtMenuBar::AddMenu(QWidget* parent, const MenuItem& item, MenuArray& array) {
    auto* menu = new ModelMenu(NativeCaption(item), parent);
    const bool isTopLevel = parent == bar_;
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &array, isTopLevel] {
        PrepareMenu(*menu);
        if (isTopLevel) CallHandler(events_.onOpening, array);
        Fill(*menu, array);
    });
    if (isTopLevel) connect(menu, &QMenu::aboutToHide, this, &QtMenuBar::LeaveMenu);
    return menu;
}

void QtMenuBar::PrepareMenu(QMenu& menu) {
    if (!style_) style_ = std::make_unique<MenuStyle>();
    if (menu.style() == style_.get()) return;
    menu.setStyle(style_.get());
    menu.setSeparatorsCollapsible(false); // the model says which separators show
}

void QtMenuBar::Fill(ModelMenu& menu, const MenuArray& array) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (MenuArray* child : array.children) {
        if (child->children.empty())
            menu.AddArray(*child);
        else if (const MenuItem& item = (*child)[0]; item.visible)
            ShowState(*menu.addMenu(AddMenu(&menu, item, *child)), item, menu.font());
    }
}
