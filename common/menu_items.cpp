#include "common/menu_items.h"

#include "common/key_names.h"
#include "common/text.h"

MenuItem& AddMenuItem(MenuArray& array, std::u16string_view caption,
                      const MenuItemOptions& options) {
    MenuItem item;
    item.caption = caption;
    if (!options.shortcut.empty()) item.caption += u'\t' + GetShortcutText(options.shortcut);
    item.tag = options.tag;
    if (options.helpContextId > 0) item.helpContextId = options.helpContextId;
    item.checked = options.checked;
    item.visible = options.visible;
    item.literal = array.Count() > 0 && array[0].literal;
    return array.items.emplace_back(std::move(item));
}

std::u16string_view BaseCaption(const MenuItem& item) {
    return std::u16string_view(item.caption).substr(0, item.caption.find(u'\t'));
}

void SetMenuShortcutText(MenuItem& item, std::u16string_view text) {
    std::u16string caption(BaseCaption(item));
    if (!text.empty()) (caption += u'\t') += text;
    item.caption = std::move(caption);
}

void CheckRadioItem(int index, MenuArray& group) {
    for (int i = 0; i < group.Count(); ++i) {
        group[i].radio = true;
        group[i].checked = i == index;
    }
}

int CheckedItem(const MenuArray& group) {
    for (int i = 0; i < group.Count(); ++i)
        if (group[i].checked) return i;
    return 0;
}

std::u16string PlainCaption(const MenuItem& item) {
    return Replace(BaseCaption(item), u"&", u"");
}

std::u16string DialogTitle(const MenuItem& item) {
    return Replace(PlainCaption(item), u"...", u"");
}
