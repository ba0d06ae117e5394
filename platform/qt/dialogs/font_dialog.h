// The dialog that chooses the text's font and colour.
#pragma once

#include "platform/dialogs.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFontComboBox;
class QFormLayout;
class QLabel;
class QPushButton;

class FontDialog final : public QDialog {
  public:
    FontDialog(QWidget* parent, const ViewFont&, Color);

    // What was not touched is exactly as it was given, also a face that is not installed and a size
    // or a character set that the dialog does not offer.
    ViewFont Chosen() const;
    Color ChosenColor() const { return color_; }

  private:
    void AddFaceAndStyle(QFormLayout&);
    void AddSize(QFormLayout&);
    void AddEffects(QFormLayout&);
    void AddScript(QFormLayout&);
    void AddSample(QFormLayout&);
    void AskForColor();
    void ShowColor();
    void ShowSample();

    const ViewFont given_;
    Color color_;
    QFontComboBox* face_;
    QComboBox* style_;
    QDoubleSpinBox* size_;
    QCheckBox *strikethrough_, *underline_;
    QPushButton* colorButton_;
    QComboBox* script_;
    QLabel* sample_;
    int shownFace_ = -1;   // as it is shown untouched: an index
    double shownSize_ = 0; // likewise
};
