// The dialog that selects the font and colour of the text.
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
class ReadingList;

class FontDialog final : public QDialog {
  public:
    FontDialog(QWidget* parent, const FontRequest&);

    // What the user did not change is returned exactly as given, even a family that is not
    // installed or a size or character set that the dialog does not offer.
    ViewFont SelectedFont() const;
    Color SelectedColor() const { return color_; }
    int SelectedReading() const; // as in FontAnswer

  private:
    void AddFamilyAndStyle(QFormLayout&);
    void AddSize(QFormLayout&);
    void AddEffects(QFormLayout&);
    void AddScript(QFormLayout&);
    void AddReadings(QFormLayout&);
    void AddSample(QFormLayout&);
    void SelectTextColor();
    void UpdateColor();
    void UpdateSample();
    void SelectScriptOfReading();
    void SelectReadingOfScript();

    const FontRequest request_;
    const ViewFont& initial_ = request_.font;
    Color color_;
    QFontComboBox* family_;
    QComboBox* style_;
    QDoubleSpinBox* size_;
    QCheckBox *strikethrough_, *underline_;
    QPushButton* colorButton_;
    QComboBox* script_;
    ReadingList* readings_ = nullptr; // where there are any
    QLabel* sample_;
    int initialFamily_ = -1; // index in family_
    double initialSize_ = 0;
};
