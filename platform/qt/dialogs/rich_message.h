// A message box with rich text and custom buttons.
#pragma once

#include <QDialog>

#include <memory>
#include <string>
#include <vector>

class RichMessage final : public QDialog {
  public:
    RichMessage(QWidget* parent, const std::string& rtf,
                const std::vector<std::u16string>& buttons);
    ~RichMessage() override;

    int ClickedButton(); // runs the dialog; the 1-based number of the button, 0 if none

  private:
    std::unique_ptr<class QtTextView> text_;
};
