// The dialog that asks for the text to find.
#pragma once

#include "platform/dialogs.h"

#include <QDialog>

class QCheckBox;
class QComboBox;

class FindDialog final : public QDialog {
  public:
    FindDialog(QWidget* parent, const FindRequest&);

    // The current input; if the text was not edited, exactly the requested one.
    FindAnswer Answer() const;

  private:
    void AddButtons();

    const std::u16string initial_;
    QComboBox* text_;
    QCheckBox *wholeWord_, *matchCase_;
    QString initialText_; // the requested text as a single-line edit shows it
};
