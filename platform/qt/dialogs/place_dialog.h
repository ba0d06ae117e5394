// The dialog that asks for a place in the book: a per cent or a heading.
#pragma once

#include "platform/dialogs.h"

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;

class PlaceDialog final : public QDialog {
  public:
    PlaceDialog(QWidget* parent, const PlaceRequest&); // which outlives the dialog

    PlaceAnswer Answer() const;

  protected:
    bool eventFilter(QObject* watched,
                     QEvent*) override; // keys of the filter that move in the list

  private:
    enum class Choice { None, Percent, Heading };

    void LayOut();
    void Connect();
    void Choose(Choice);
    void FillList();
    void SelectCurrent();

    const PlaceRequest& request_;
    QSpinBox* percent_;
    QLineEdit* filter_;
    QListWidget* list_;
    QPushButton* go_ = nullptr;
    Choice choice_ = Choice::None; // what was changed last
};
