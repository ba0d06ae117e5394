// The dialog that asks for a text to find.
#pragma once

#include "platform/dialogs.h"

#include <QDialog>

class QCheckBox;
class QComboBox;

class FindDialog final : public QDialog {
  public:
    FindDialog(QWidget* parent, const FindRequest&);

    FindAnswer Answer() const; // what the dialog shows now; a text not touched exactly as given

  private:
    void AddButtons();

    const std::u16string given_;
    QComboBox* text_;
    QCheckBox *wholeWord_, *matchCase_;
    QString shown_; // the given text, as one line can show it
};
