// The dialogs on Qt.
#pragma once

#include "platform/dialogs.h"

#include <QString>

class QWidget;

class QtDialogs final : public Dialogs {
  public:
    explicit QtDialogs(QWidget* owner);

    OpenFileAnswer OpenFile(const OpenFileRequest&) override;
    std::u16string AskText(const std::u16string& title, const std::u16string& prompt) override;
    ColorAnswer ChooseColor(const std::u16string& title, Color start) override;
    FontAnswer ChooseFont(const std::u16string& title, const ViewFont&, Color) override;
    FindAnswer AskFind(const FindRequest&) override;
    DialogResult ShowMessage(const Message&) override;
    void SetHelpFile(const std::u16string& path) override;

  private:
    QWidget* owner_;
    QString helpFile_;
};
