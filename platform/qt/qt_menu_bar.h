// The menu bar on Qt: native menus made from the model each time one opens.
#pragma once

#include "platform/menu_bar.h"

#include <QObject>

#include <memory>

class MenuStyle;
class ModelMenu;
class QMenu;
class QMenuBar;
class QtWindow;

class QtMenuBar final : public QObject, public MenuBar {
  public:
    explicit QtMenuBar(QtWindow& window); // the window comes to own the native bar
    ~QtMenuBar() override;

    void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) override;
    void Refresh() override;

  private:
    QMenu* AddMenu(QWidget* parent, const MenuItem& item, MenuArray& array);
    void Fill(ModelMenu&, const MenuArray&);
    void PrepareMenu(QMenu&);

    QtWindow& window_;
    QMenuBar* bar_;
    std::unique_ptr<MenuStyle> style_;
    std::vector<MenuArray*> topLevel_;
    std::vector<QMenu*> menus_; // of topLevel_, in order; owned by the bar
    MenuEvents events_;
};
