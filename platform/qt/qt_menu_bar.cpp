#include "platform/qt/qt_menu_bar.h"

#include "platform/qt/handler.h"
#include "platform/qt/menu_style.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_window.h"

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

namespace {

QString NativeCaption(const MenuItem& item) {
    QString caption = ToQt(item.caption);
    if (item.literal) caption.replace(QLatin1Char('&'), QLatin1String("&&"));
    return caption;
}

// A native item that knows its place in the model.
class ItemAction final : public QAction {
  public:
    ItemAction(QObject* parent, const MenuItem& item, MenuArray& ofArray, int at)
        : QAction(NativeCaption(item), parent), array(ofArray), index(at) {}

    MenuArray& array;
    const int index;
};

} // namespace

QtMenuBar::QtMenuBar(QtWindow& window) : window_(window), bar_(new QMenuBar(&window)) {
    connect(bar_, &QMenuBar::triggered, this, [this](QAction* action) {
        if (const auto* item = dynamic_cast<const ItemAction*>(action))
            CallHandler(events_.onClick, item->array, item->index);
    });
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

// A menu or submenu without its items: these are made when it opens.
QMenu* QtMenuBar::AddMenu(QWidget* parent, const MenuItem& item, MenuArray& array) {
    auto* menu = new QMenu(NativeCaption(item), parent);
    const bool isTopLevel = parent == bar_;
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &array, isTopLevel] {
        PrepareMenu(*menu);
        if (isTopLevel) CallHandler(events_.onOpening, array);
        Fill(*menu, array);
    });
    return menu;
}

void QtMenuBar::PrepareMenu(QMenu& menu) {
    if (!style_) style_ = std::make_unique<MenuStyle>();
    if (menu.style() == style_.get()) return;
    menu.setStyle(style_.get());
    menu.setSeparatorsCollapsible(false); // the model says which separators show
}

void QtMenuBar::Fill(QMenu& menu, const MenuArray& array) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (MenuArray* child : array.children)
        for (int index = 0; index < child->Count(); ++index)
            AddItem(menu, *child, index);
}

void QtMenuBar::AddItem(QMenu& menu, MenuArray& array, int index) {
    const MenuItem& item = array[static_cast<std::size_t>(index)];
    if (!item.visible) return;
    if (item.IsSeparator()) {
        menu.addSeparator();
        return;
    }
    QAction* action = nullptr;
    if (array.children.empty()) {
        action = new ItemAction(&menu, item, array, index);
        menu.addAction(action);
    } else {
        action = menu.addMenu(AddMenu(&menu, item, array));
    }
    action->setEnabled(item.enabled && !item.heading);
    if (item.heading) {
        QFont bold = menu.font();
        bold.setBold(true);
        action->setFont(bold);
    }
    if (item.checked) {
        action->setCheckable(true);
        if (item.radio)
            (new QActionGroup(action))->addAction(action); // a group of exclusive items has bullets
        action->setChecked(true);
    }
}
