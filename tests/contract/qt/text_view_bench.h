// The fixture of the tests of Qt's text view.
#pragma once

#include "platform/qt/base/qt_font.h"
#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "platform/qt/text_view/line_layout/qt_text_lines.h"
#include "platform/qt/text_view/qt_text_view.h"
#include "platform/qt/text_view/text_widget.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextLayout>

#include <algorithm>
#include <string>
#include <vector>

struct QtViewBench {
    QtTextView view{nullptr};

    explicit QtViewBench(int width = 500, int height = 400) {
        view.SetBounds({0, 0, width, height});
        view.SetVisible(true);
    }
    TextWidget& Widget() { return static_cast<TextWidget&>(*view.Widget()); }
    int TextWidth() { // without the margins
        const int whole = Widget().maximumViewportSize().width();
        return whole - 2 * std::max(6, whole / 40);
    }
    // Whether the view accepted the key.
    bool Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        event.setAccepted(false);
        QCoreApplication::sendEvent(view.Widget(), &event);
        return event.isAccepted();
    }
    void Mouse(QEvent::Type type, QPoint at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const bool moves = type == QEvent::MouseMove, released = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, Widget().viewport()->mapToGlobal(at),
                          moves ? Qt::NoButton : Qt::LeftButton,
                          released ? Qt::NoButton : Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(Widget().viewport(), &event);
    }
};

inline QRect CaretQRect(const BlockLayout& layout, TextPos at) {
    return ToQRect(CaretBox(layout, at));
}
inline QRect CharacterQRect(const BlockLayout& layout, TextPos at) {
    return ToQRect(CharacterBox(layout, at));
}

inline Point ToPoint(QPoint point) {
    return {point.x(), point.y()};
}

inline const std::vector<LayoutSegment>& Segments(const ParagraphLayout& paragraph) {
    return static_cast<const QtTextLines&>(*paragraph.text).Segments();
}

inline std::u16string RepeatedText(std::u16string_view part, int times) {
    std::u16string text;
    text.reserve(part.size() * std::size_t(times));
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

// Line starts of one paragraph in a layout of its whole text.
inline std::vector<TextPos> WholeLayout(const std::u16string& text, TextPos start, TextPos end,
                                        int width, QWidget* device) {
    QTextLayout layout(QString::fromStdU16String(text.substr(start, end - start)), MakeFont({}),
                       device);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(layout.text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    const QFontMetricsF metrics(MakeFont({}), device);
    option.setTabStopDistance(8 * metrics.horizontalAdvance(u' '));
    layout.setTextOption(option);
    layout.beginLayout();
    std::vector<TextPos> starts;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        starts.push_back(start + line.textStart());
    }
    layout.endLayout();
    return starts;
}
