// What assistive technology is told of a text widget when it asks.
#pragma once

#include "platform/qt/text_view/accessibility/accessible_units.h"

#include <QAccessibleWidget>

#include <optional>

class TextWidget;

// Offsets count UTF-16 units, as everywhere in Qt; -1 stands for the text's length and -2 for the
// caret. No call takes longer for a long text than for a short one, so that a book of a gigabyte
// can be read too: for this a call returns at most `maxAnswerLength` units, and the stretches are
// those of `UnitAt`.
class AccessibleText final : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    static constexpr TextPos maxAnswerLength = 256 * 1024;

    explicit AccessibleText(TextWidget& view);

    // Makes Qt ask for one wherever a text widget is met; costs nothing until somebody does.
    static void Install();

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    // The scroll bars that are seen. What scrolls is this object itself.
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    // One selection, from the anchor to the caret.
    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int offset) override;

    int characterCount() const override;
    QString text(int start, int end) const override; // cut off at what one call returns
    // For a place outside the text, and where there is no such stretch: "" and -1 twice.
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType, int* start,
                             int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType, int* start,
                            int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType, int* start,
                         int* end) const override;
    QString attributes(int offset, int* start, int* end) const override;

    void scrollToSubstring(int start, int end) override;
    // One that is not in view is told to be above or below it: screen readers find the lines that
    // are seen by halving the text.
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override; // the nearest one; -1 outside the view

  private:
    TextWidget& View() const;
    std::vector<QWidget*> ScrollBars() const;
    std::optional<TextPos> Place(int offset) const;
    TextPos PlaceInText(int offset) const;
    TextSpan StretchAt(TextPos position, QAccessible::TextBoundaryType) const;
    QString Tell(std::optional<TextSpan> stretch, int* start, int* end) const;
};
