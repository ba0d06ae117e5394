// The menu bar on Qt: native menus made from the model each time one opens.
#pragma once

#include "platform/menu_bar.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>

class MenuStyle;
class ModelMenu;
class QAction;
class QMenu;
class QMenuBar;
class QtWindow;

class QtMenuBar final : public QObject, public MenuBar {
  public:
    // The window comes to own the native bar. `contextPoint` tells where on the screen a context
    // menu was asked for.
    QtMenuBar(QtWindow& window, std::function<QPoint()> contextPoint);
    ~QtMenuBar() override;

    void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) override;
    void Refresh() override;
    void ShowMenu(MenuArray& topLevel) override;
    void ShowContextMenu(const std::vector<MenuArray*>& items) override;

  private:
    QMenu* AddMenu(QWidget* parent, const MenuItem& item, MenuArray& array);
    void Fill(ModelMenu&, const MenuArray&);
    void PrepareMenu(QMenu&);
    void Choose(const QAction*);
    void LeaveMenu();

    QtWindow& window_;
    std::function<QPoint()> contextPoint_;
    QMenuBar* bar_;
    std::unique_ptr<MenuStyle> style_;
    std::unique_ptr<ModelMenu> contextMenu_; // the one shown last
    std::vector<MenuArray*> topLevel_;
    std::vector<QMenu*> menus_; // of topLevel_, in order; owned by the bar
    MenuEvents events_;
    bool openedByProgram_ = false; // the menu that is open, or the one gone to from it
};
