#include "platform/qt/window/model_menu.h"

#include "platform/qt/base/qt_text.h"

#include <QAccessible>
#include <QActionGroup>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QScreen>
#include <QStyleOptionMenuItem>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int longMenu = 200;    // items
constexpr int measuredItems = 8; // more than one: the estimate is off by a few pixels

// Sums the advances of single characters, each measured once: accurate enough to find the widest
// texts.
class TextExtent {
  public:
    explicit TextExtent(const QFont& font) : metrics_(font), widths_(0x10000, unknown) {}

    int Width(std::u16string_view text) { // pixels
        int sum = 0;
        for (const char16_t unit : text) {
            int& width = widths_[unit];
            if (width == unknown) width = metrics_.horizontalAdvance(QChar(unit));
            sum += width;
        }
        return sum;
    }

  private:
    static constexpr int unknown = -1;

    QFontMetrics metrics_;
    std::vector<int> widths_; // by UTF-16 unit
};

// Marks the visible items with the greatest estimated width of `part` of their captions.
template <typename Part>
void MarkWidest(const MenuArray& array, const Part& part, std::vector<bool>& marked) {
    std::vector<std::pair<int, std::size_t>> widths;
    for (std::size_t i = 0; i < array.items.size(); ++i)
        if (array[i].visible) widths.emplace_back(part(array[i].caption), i);
    const auto end = widths.begin() + std::min<std::ptrdiff_t>(measuredItems, std::ssize(widths));
    std::ranges::partial_sort(widths, end, std::greater<>());
    std::for_each(widths.begin(), end, [&](const auto& width) { marked[width.second] = true; });
}

// The items whose width must be measured for the menu to become wide enough.
std::vector<bool> ItemsToMeasure(const MenuArray& array, const QFont& font) {
    // A screen reader reads QAction::text().
    if (array.Count() < longMenu || QAccessible::isActive())
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
    QString caption = ToQt(item.ShownCaption());
    if (item.literal) caption.replace(QLatin1Char('&'), QLatin1String("&&"));
    return caption;
}

QString ElidedCaption(const MenuItem& item, const QFont& font, int maxWidth) {
    if (!item.literal) return NativeCaption(item);
    const QString caption = ToQt(item.ShownCaption());
    const qsizetype tab = caption.indexOf(QLatin1Char('\t'));
    const QFontMetrics metrics(font);
    const int afterTab = tab < 0 ? 0 : metrics.horizontalAdvance(caption.mid(tab + 1));
    QString text = metrics.elidedText(caption.left(tab), Qt::ElideMiddle,
                                      std::max(maxWidth - afterTab, maxWidth / 4));
    if (tab >= 0) text += caption.mid(tab);
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

void ApplyState(QAction& action, const MenuItem& item, const QFont& font) {
    action.setEnabled(item.enabled && !item.heading);
    if (item.heading ||
        (item.isDefault && item.enabled)) { // MenuStyle recognises a heading by the bold font
        QFont bold = font;
        bold.setBold(true);
        action.setFont(bold);
    }
    if (item.checked) {
        action.setCheckable(true);
        if (item.radio)
            // An item of an exclusive group has a radio mark.
            (new QActionGroup(&action))->addAction(&action);
        action.setChecked(true);
    }
}

ItemAction::ItemAction(QObject* parent, MenuArray& ofArray, int at)
    : QAction(parent), array(ofArray), index(at) {}

void ModelMenu::AddItems(MenuArray& array) {
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
    if (withText || item.isDefault) action->setText(Caption(*action));
    ApplyState(*action, item, font());
    addAction(action);
}

void ModelMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    if (!action->text().isEmpty()) return;
    if (const auto* item = dynamic_cast<const ItemAction*>(action)) option->text = Caption(*item);
}

QString ModelMenu::Caption(const ItemAction& action) const {
    return ElidedCaption(action.Item(), font(), screen()->availableGeometry().width() / 2);
}

bool ModelMenu::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QMenu::event(event);
    const auto* help = static_cast<const QHelpEvent*>(event);
    const auto* action = dynamic_cast<const ItemAction*>(actionAt(help->pos()));
    const bool isElided = action && Caption(*action) != NativeCaption(action->Item());
    if (isElided) // as plain text: a path may look like HTML
        QToolTip::showText(help->globalPos(),
                           QLatin1String("<p style='white-space:pre-wrap'>") +
                               ToQt(action->Item().ShownCaption()).toHtmlEscaped() +
                               QLatin1String("</p>"),
                           this, actionGeometry(const_cast<ItemAction*>(action)));
    else
        QToolTip::hideText();
    return true;
}
