// The list in which a line of the book stands beside the name of each charset.
#pragma once

#include "platform/dialogs.h"

#include <QTreeWidget>

class ReadingList final : public QTreeWidget {
  public:
    ReadingList(const std::vector<TextReading>&, int selected);

    int Selected() const; // -1 for none
    void Select(int reading);

  protected:
    QSize sizeHint() const override;
};
