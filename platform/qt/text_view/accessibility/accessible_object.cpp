#include "platform/qt/text_view/accessibility/accessible_object.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/text_view/accessibility/accessible_text.h"
#include "platform/qt/text_view/accessibility/readable_widget.h"
#include "view/reading_units.h"

#include <algorithm>

AccessibleObject::AccessibleObject(ReadableWidget& view, std::size_t index)
    : view_(&view), index_(index), version_(view.Readable().ObjectsVersion()) {}

bool AccessibleObject::isValid() const {
    return view_ && view_->Readable().ObjectsVersion() == version_ &&
           index_ < view_->Readable().Objects().size();
}

const ReadingObject& AccessibleObject::Self() const {
    return view_->Readable().Objects()[index_];
}

AccessibleText* AccessibleObject::Document() const {
    return dynamic_cast<AccessibleText*>(QAccessible::queryAccessibleInterface(view_));
}

QWindow* AccessibleObject::window() const {
    return view_ ? view_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* AccessibleObject::parent() const {
    AccessibleText* document = isValid() ? Document() : nullptr;
    if (!document) return nullptr;
    const std::size_t around = Self().parent;
    return around == noReadingObject ? document : document->Object(around);
}

std::vector<std::size_t> AccessibleObject::Children() const {
    return isValid() ? ReadingChildren(view_->Readable().Objects(), index_)
                     : std::vector<std::size_t>();
}

int AccessibleObject::childCount() const {
    return int(Children().size());
}

QAccessibleInterface* AccessibleObject::child(int index) const {
    const auto children = Children();
    const bool exists = index >= 0 && index < std::ssize(children);
    AccessibleText* document = exists ? Document() : nullptr;
    return document ? document->Object(children[std::size_t(index)]) : nullptr;
}

int AccessibleObject::indexOfChild(const QAccessibleInterface* child) const {
    const auto* object = dynamic_cast<const AccessibleObject*>(child);
    const auto children = Children();
    const auto at = object ? std::ranges::find(children, object->index_) : children.end();
    return at == children.end() ? -1 : int(at - children.begin());
}

QAccessibleInterface* AccessibleObject::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i)
        if (QAccessibleInterface* inside = child(i); inside && inside->rect().contains(x, y))
            return inside;
    return nullptr;
}

QString AccessibleObject::text(QAccessible::Text kind) const {
    if (!isValid()) return {};
    const ReadingObject& self = Self();
    if (kind == QAccessible::Name) return ToQt(ReadingName(view_->Readable(), self));
    if (kind != QAccessible::Description) return {};
    if (self.kind == ReadingObjectKind::Heading)
        return QStringLiteral("Heading level %1").arg(self.level);
    if (self.kind == ReadingObjectKind::Table)
        return QStringLiteral("%1 rows, %2 columns").arg(self.rows).arg(self.columns);
    return ToQt(self.address);
}

QRect AccessibleObject::rect() const {
    const QRect box = isValid() ? view_->ObjectRect(index_) : QRect();
    return box.isEmpty() ? QRect()
                         : QRect(view_->viewport()->mapToGlobal(box.topLeft()), box.size());
}

QAccessible::Role AccessibleObject::role() const {
    if (!isValid()) return QAccessible::NoRole;
    switch (Self().kind) {
    case ReadingObjectKind::Heading: return QAccessible::Heading;
    case ReadingObjectKind::Link: return QAccessible::Link;
    case ReadingObjectKind::Picture: return QAccessible::Graphic;
    case ReadingObjectKind::List: return QAccessible::List;
    case ReadingObjectKind::ListItem: return QAccessible::ListItem;
    case ReadingObjectKind::Table: return QAccessible::Table;
    case ReadingObjectKind::Row: return QAccessible::Row;
    case ReadingObjectKind::Cell: return QAccessible::Cell;
    }
    return QAccessible::NoRole;
}

QAccessible::State AccessibleObject::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.readOnly = true;
    state.invisible = !view_->isVisible();
    state.offscreen = view_->ObjectRect(index_).isEmpty();
    if (Self().kind != ReadingObjectKind::Link) return state;
    state.linked = state.focusable = true;
    state.focused = view_->hasFocus() && view_->Readable().FocusedObject() == index_;
    return state;
}

void* AccessibleObject::interface_cast(QAccessible::InterfaceType type) {
    const bool acts = isValid() && Self().kind == ReadingObjectKind::Link;
    if (type != QAccessible::ActionInterface || !acts) return nullptr;
    return static_cast<QAccessibleActionInterface*>(this);
}

QStringList AccessibleObject::actionNames() const {
    return {pressAction()};
}

void AccessibleObject::doAction(const QString& name) {
    if (isValid() && name == pressAction()) view_->Readable().FollowObject(index_);
}
