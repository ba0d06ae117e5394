// The help window on Qt.
#pragma once

#include "platform/help_window.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class HelpList;
class QLineEdit;
class QtTextView;

class HelpWidget final : public QWidget {
  public:
    explicit HelpWidget(const HelpContents&);
    ~HelpWidget() override;

    void ShowContents(const HelpContents&, int page);

  protected:
    void keyPressEvent(QKeyEvent*) override;
    void changeEvent(QEvent*) override;

  private:
    void CreateLayout();
    void ConnectSignals();
    void UpdateList(const QString& typed);
    void OnRowChanged(int row);
    void ShowPage(int page);
    void FollowLink(const std::u16string& address);
    void ApplyPalette();
    void Copy() const;

    HelpContents contents_;
    QLineEdit* search_;
    HelpList* list_;
    std::unique_ptr<QtTextView> text_;
    int shownPage_ = -1;
};

class QtHelpWindow final : public HelpWindow {
  public:
    ~QtHelpWindow() override;
    void Show(const HelpContents&, int page) override;
    bool Raise() override;

  private:
    QPointer<HelpWidget> widget_; // null if closed
};
