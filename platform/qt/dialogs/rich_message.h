// A message of rich text with buttons of the caller's.
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

    int Ask(); // the number of the button that was pressed, from 1; 0 for none

  private:
    std::unique_ptr<class QtTextView> text_;
};
