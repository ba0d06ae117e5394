// The container of the page: accepts file drops, and can cover the page with a notice.
#pragma once

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QLabel;

class HtmlPanel : public QWidget {
  public:
    explicit HtmlPanel(QWidget* parent); // initially hidden

    void ShowNotice(const QString&); // over the page
    void HideNotice();

    std::function<void(const std::vector<std::u16string>& paths)> onFilesDropped;

  protected:
    void dragEnterEvent(QDragEnterEvent*) override;
    void dropEvent(QDropEvent*) override;
    void resizeEvent(QResizeEvent*) override;

  private:
    QLabel* notice_;
};
