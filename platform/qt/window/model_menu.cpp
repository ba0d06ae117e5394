#include "platform/qt/window/model_menu.h"

#include "platform/qt/qt_text.h"
#include "platform/qt/window/text_extent.h"

#include <QAccessible>
#include <QActionGroup>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace {

constexpr int longList = 200;   // items
constexpr int measuredOnes = 8; // the estimate is off by a few pixels at most

// Which visible items come first by the estimated width of a part of their captions.
template <typename Part>
void MarkWidest(const MenuArray& array, const Part& part, std::vector<bool>& marked) {
    std::vector<std::pair<int, std::size_t>> widths;
    for (std::size_t i = 0; i < array.items.size(); ++i)
        if (array[i].visible) widths.emplace_back(part(array[i].caption), i);
    const auto end = widths.begin() + std::min<std::ptrdiff_t>(measuredOnes, std::ssize(widths));
    std::ranges::partial_sort(widths, end, std::greater<>());
    std::for_each(widths.begin(), end, [&](const auto& width) { marked[width.second] = true; });
}

// The items that need a text of their own for the menu to become wide enough.
std::vector<bool> ItemsToMeasure(const MenuArray& array, const QFont& font) {
    // A screen reader reads the texts.
    if (array.Count() < longList || QAccessible::isActive())
        return std::vector<bool>(array.items.size(), true);
    std::vector<bool> marked(array.items.size());
    TextExtent extent(font);
    MarkWidest(
        array,
        [&](std::u16string_view caption) {
            return extent.Width(caption.substr(0, caption.find(u'\t')));
        },
        marked);
    MarkWidest(
        array,
        [&](std::u16string_view caption) {
            const std::size_t tab = caption.find(u'\t');
            return tab == caption.npos ? 0 : extent.Width(caption.substr(tab + 1));
        },
        marked);
    return marked;
}

} // namespace

QString NativeCaption(const MenuItem& item) {
    QString caption = ToQt(item.caption);
    if (item.literal) caption.replace(QLatin1Char('&'), QLatin1String("&&"));
    return caption;
}

void ShowState(QAction& action, const MenuItem& item, const QFont& font) {
    action.setEnabled(item.enabled && !item.heading);
    if (item.heading || (item.isDefault && item.enabled)) { // MenuStyle knows a heading by it
        QFont bold = font;
        bold.setBold(true);
        action.setFont(bold);
    }
    if (item.checked) {
        action.setCheckable(true);
        if (item.radio)
            (new QActionGroup(&action))->addAction(&action); // an exclusive item has a bullet
        action.setChecked(true);
    }
}

ItemAction::ItemAction(QObject* parent, MenuArray& ofArray, int at)
    : QAction(parent), array(ofArray), index(at) {}

void ModelMenu::AddArray(MenuArray& array) {
    const std::vector<bool> withText = ItemsToMeasure(array, font());
    for (int index = 0; index < array.Count(); ++index)
        AddItem(array, index, withText[static_cast<std::size_t>(index)]);
}

void ModelMenu::AddItem(MenuArray& array, int index, bool withText) {
    const MenuItem& item = array[static_cast<std::size_t>(index)];
    if (!item.visible) return;
    if (item.IsSeparator()) {
        addSeparator();
        return;
    }
    auto* action = new ItemAction(this, array, index);
    if (withText || item.isDefault) action->setText(action->Caption());
    ShowState(*action, item, font());
    addAction(action);
}

void ModelMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    if (!action->text().isEmpty()) return;
    if (const auto* item = dynamic_cast<const ItemAction*>(action)) option->text = item->Caption();
}
