// Native menu items that mirror the menu model.
#pragma once

#include "platform/menu_bar.h"

#include <QAction>
#include <QMenu>

QString NativeCaption(const MenuItem&);

// The same with a text of the user's elided in the middle, so that the whole is at most `maxWidth`
// pixels; what follows a tab stays as it is.
QString ElidedCaption(const MenuItem&, const QFont&, int maxWidth);

// An action that knows its item in the model.
class ItemAction final : public QAction {
  public:
    ItemAction(QObject* parent, MenuArray& ofArray, int at);

    const MenuItem& Item() const { return array[static_cast<std::size_t>(index)]; }

    MenuArray& array;
    const int index;
};

// Qt measures the text of every action when a menu opens, which for thousands of items dominates
// the time. So in a long menu only the few items that may be the widest have a text; the others are
// drawn with the caption from the model. Captions wider than half the screen are elided, and whole
// in the tip.
class ModelMenu final : public QMenu {
  public:
    using QMenu::QMenu;

    void AddItems(MenuArray&); // of an array without submenus

  protected:
    void initStyleOption(QStyleOptionMenuItem*, const QAction*) const override;
    bool event(QEvent*) override;

  private:
    QString Caption(const ItemAction&) const;
    void AddItem(MenuArray&, int index, bool withText);
};

// Applies enabled, checked, default and heading to the action.
void ApplyState(QAction&, const MenuItem&, const QFont&);
