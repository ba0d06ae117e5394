// The list in the help window: all pages, or search results with excerpts.
#pragma once

#include "platform/help_window.h"

#include <QListWidget>

class HelpList final : public QListWidget {
  public:
    explicit HelpList(QWidget* parent = nullptr);

    void ShowTitles(const std::vector<std::u16string>& titles);
    void ShowFindings(std::vector<HelpFinding> findings);
    // The search result of a row; null in a list of titles.
    const HelpFinding* Finding(int row) const;

  protected:
    void resizeEvent(QResizeEvent*) override;

  private:
    std::vector<HelpFinding> findings_;
};
