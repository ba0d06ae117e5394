#include "platform/qt/dialogs/reading_list.h"

#include "platform/qt/base/qt_text.h"

#include <QHeaderView>

#include <algorithm>

namespace {
constexpr int visibleRows = 7, visibleLetters = 78;
}

ReadingList::ReadingList(const std::vector<TextReading>& readings, int selected) {
    setColumnCount(2);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the end of a line tells no more
    setTabKeyNavigation(false);
    for (const TextReading& reading : readings) {
        auto* item = new QTreeWidgetItem(this, {ToQt(reading.name), ToQt(reading.line)});
        item->setFlags(item->flags() | Qt::ItemNeverHasChildren);
    }
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    Select(selected);
}

int ReadingList::Selected() const {
    return selectedItems().isEmpty() ? -1 : indexOfTopLevelItem(selectedItems().first());
}

void ReadingList::Select(int reading) {
    if (reading < 0) return clearSelection();
    setCurrentItem(topLevelItem(reading));
    scrollToItem(currentItem());
}

QSize ReadingList::sizeHint() const {
    const int row = std::max(sizeHintForRow(0), fontMetrics().height());
    return {visibleLetters * fontMetrics().averageCharWidth(),
            visibleRows * row + 2 * frameWidth()};
}
