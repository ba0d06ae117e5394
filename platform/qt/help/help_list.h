// The list of the help window: the pages, or what a search found with an excerpt of each.
#pragma once

#include "platform/help_window.h"

#include <QListWidget>

class HelpList final : public QListWidget {
  public:
    explicit HelpList(QWidget* parent = nullptr);

    void ShowTitles(const std::vector<std::u16string>& titles);
    void ShowFindings(std::vector<HelpFinding> findings);
    // Of a row of findings; null in a list of titles.
    const HelpFinding* Finding(int row) const;

  protected:
    void resizeEvent(QResizeEvent*) override;

  private:
    std::vector<HelpFinding> findings_;
};
