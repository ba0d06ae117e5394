// The menu bar on Qt: native menus are rebuilt from the model each time one opens.
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
    // The window owns the native bar. `contextMenuPosition` returns the global position where a
    // context menu was requested.
    QtMenuBar(QtWindow& window, std::function<QPoint()> contextMenuPosition);
    ~QtMenuBar() override;

    void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) override;
    void Refresh() override;
    void ShowMenu(MenuArray& topLevel) override;
    void ShowContextMenu(const std::vector<MenuArray*>& items) override;

  private:
    QMenu* AddMenu(QWidget* parent, const MenuItem& item, MenuArray& array);
    void Populate(ModelMenu&, const MenuArray&);
    void ApplyStyle(QMenu&);
    void OnTriggered(const QAction*);
    void OnMenuHidden();

    QtWindow& window_;
    std::function<QPoint()> contextMenuPosition_;
    QMenuBar* bar_;
    std::unique_ptr<MenuStyle> style_;
    std::unique_ptr<ModelMenu> contextMenu_; // the last one shown
    std::vector<MenuArray*> topLevel_;
    std::vector<QMenu*> menus_; // same order as topLevel_; owned by the bar
    MenuEvents events_;
    // The open menu was opened by ShowMenu, or reached from such a menu.
    bool openedByProgram_ = false;
};
