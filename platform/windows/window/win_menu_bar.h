// The menu bar on Windows: native menus made from the model each time one opens.
#pragma once

#include "platform/menu_bar.h"
#include "platform/windows/window/model_menu.h"

#include <optional>

class WinMenuBar final : public MenuBar {
  public:
    // `contextPoint` returns the screen position of the last context-menu request.
    WinMenuBar(HWND frame, std::function<POINT()> contextPoint);
    ~WinMenuBar() override;

    void Attach(const std::vector<MenuArray*>& topLevel, MenuEvents) override;
    void Refresh() override;
    void ShowMenu(MenuArray& topLevel) override;
    void ShowContextMenu(const std::vector<MenuArray*>& items) override;

  private:
    // One top-level menu of the model and its native counterpart.
    struct TopLevelMenu {
        MenuArray* array;
        HMENU menu;
        std::u16string caption;
        bool enabled = false, visible = false;
    };

    static LRESULT CALLBACK SubclassProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR) noexcept;
    bool HandleMessage(UINT message, WPARAM, LPARAM, LRESULT& result);
    bool UpdateTopLevel(TopLevelMenu&, UINT position);
    void HandleInitMenuPopup(HMENU);
    void HandleMenuCommand(HMENU, std::size_t position);
    bool HandleMenuChar(wchar_t character, HMENU, LRESULT& result) const;
    void OpenMenu(const MenuArray*);
    void AddOpenPopups(int change);
    void EndMenuWithoutPopup() const;
    void OpenContextMenu();
    MenuItemRef ItemAt(HMENU, std::size_t position) const;

    HWND frame_;
    std::function<POINT()> contextPoint_;
    HMENU bar_ = nullptr; // the window's, which destroys it
    WinModelMenus menus_;
    std::vector<TopLevelMenu> topLevel_;
    MenuEvents events_;
    // Popups open now, the system menu included; only while a menu is open that `ShowMenu` opened.
    std::optional<int> openPopups_;
    HMENU contextMenu_ = nullptr; // the last one; its WM_MENUCOMMAND arrives after it has closed
    POINT contextMenuPoint_ = {};
};
