// The dialogs on Qt.
#pragma once

#include "platform/dialogs.h"

class QWidget;

class QtDialogs final : public Dialogs {
  public:
    explicit QtDialogs(QWidget* owner);

    OpenFileAnswer OpenFile(const OpenFileRequest&) override;
    std::u16string AskText(const std::u16string& title, const std::u16string& prompt) override;
    ColorAnswer ChooseColor(const std::u16string& title, Color start) override;
    FontAnswer ChooseFont(const FontRequest&) override;
    FindAnswer AskFind(const FindRequest&) override;
    PlaceAnswer AskPlace(const PlaceRequest&) override;
    DialogResult ShowMessage(const Message&) override;
    int ShowRichMessage(const std::string& rtf, const std::u16string& title,
                        const std::vector<std::u16string>& buttons) override;

  private:
    void AddHelpButton(class QMessageBox& box, const std::string& topic) const;

    QWidget* owner_;
};
