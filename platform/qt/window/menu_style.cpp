#include "platform/qt/window/menu_style.h"

#include <QStyleOptionMenuItem>

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    switch (hint) {
    case SH_Menu_Scrollable: return 1;
    case SH_Menu_AllowActiveAndDisabled: return 0;
    default: return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || !item || (item->state & State_Enabled)) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionMenuItem plain = *item;
    plain.state &= ~State_Selected;
    if (item->font.bold()) {
        plain.state |= State_Enabled;
        plain.palette.setCurrentColorGroup(QPalette::Active);
    }
    QProxyStyle::drawControl(element, &plain, painter, widget);
}
