// The native items of a menu that mirrors the model.
#pragma once

#include "platform/menu_bar.h"

#include <QAction>
#include <QMenu>

QString NativeCaption(const MenuItem&);

// An item that knows its place in the model.
class ItemAction final : public QAction {
  public:
    ItemAction(QObject* parent, MenuArray& ofArray, int at);

    QString Caption() const { return NativeCaption(array[static_cast<std::size_t>(index)]); }

    MenuArray& array;
    const int index;
};

// Shows items without a text of their own by their captions. Qt measures every text when a menu
// opens, which for thousands takes longer than all the rest: so in a long list only the few that
// can be the widest have one.
class ModelMenu final : public QMenu {
  public:
    using QMenu::QMenu;

    void AddArray(MenuArray&); // its items; of an array without a submenu

  protected:
    void initStyleOption(QStyleOptionMenuItem*, const QAction*) const override;

  private:
    void AddItem(MenuArray&, int index, bool withText);
};

// How an item is shown, whatever it does.
void ShowState(QAction&, const MenuItem&, const QFont&);
