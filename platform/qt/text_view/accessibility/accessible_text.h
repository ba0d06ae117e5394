// The accessible interface of the widget of a text or a page.
#pragma once

#include "view/reading_units.h"

#include <QAccessibleWidget>

#include <map>
#include <optional>
#include <vector>

class ReadableWidget;

// Offsets are UTF-16 units as everywhere in Qt; -1 is the text's length and -2 the caret. The cost
// of a call does not depend on the length of the text, so that a book of a gigabyte can be read: a
// call returns at most `maxReadingReach` units, and boundaries are those of `ReadingUnits`.
class AccessibleText final : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit AccessibleText(ReadableWidget& view);
    ~AccessibleText() override;

    // Installs the factory for widgets of texts and pages, once.
    static void Install();

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    // What the text has besides characters, and the visible scroll bars. The viewport is this
    // object itself.
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    // Of ReadablePane::Objects, also of those within others; null where there is none.
    QAccessibleInterface* Object(std::size_t index) const;

    // A single selection, from the anchor to the caret.
    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int offset) override;

    int characterCount() const override;
    QString text(int start, int end) const override; // truncated to maxReadingReach
    // "" and -1 twice for an offset outside the text, and where there is no such unit.
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType, int* start,
                             int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType, int* start,
                            int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType, int* start,
                         int* end) const override;
    QString attributes(int offset, int* start, int* end) const override;

    void scrollToSubstring(int start, int end) override;
    // A character out of view is reported above or below the view: screen readers find the visible
    // lines by a binary search.
    QRect characterRect(int offset) const override;
    // The nearest character; -1 outside the view.
    int offsetAtPoint(const QPoint& point) const override;

  private:
    ReadableWidget& View() const;
    ReadablePane& Pane() const;
    void ForgetObjects() const;
    std::vector<QWidget*> ScrollBars() const;
    std::optional<TextPos> PositionOf(int offset) const;
    TextPos ClampedPosition(int offset) const;
    TextSpan SpanAt(TextPos position, QAccessible::TextBoundaryType) const;
    QString SpanText(std::optional<TextSpan> span, int* start, int* end) const;

    // Of the objects of one version that were asked for.
    mutable std::map<std::size_t, QAccessible::Id> objects_;
    mutable int objectsVersion_ = 0;
};
