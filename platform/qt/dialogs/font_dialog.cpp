#include "platform/qt/dialogs/font_dialog.h"

#include "platform/qt/dialogs/check_box.h"
#include "platform/qt/dialogs/color_dialog.h"
#include "platform/qt/dialogs/font_scripts.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/text_view/layout/char_formats.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr double minSize = 1, maxSize = 1638; // points
constexpr int maxFaceListLength = 14;
constexpr int sampleWidth = 300, sampleHeight = 90, swatchWidth = 32; // pixels

// A whole size is shown as one.
class SizeBox final : public QDoubleSpinBox {
  public:
    using QDoubleSpinBox::QDoubleSpinBox;
    QString textFromValue(double value) const override {
        return locale().toString(value, 'g', QLocale::FloatingPointShortest);
    }
};

const char16_t* SampleOf(int charset) {
    for (const FontScript& script : FontScripts())
        if (script.charset == charset) return script.sample;
    return FontScripts().front().sample;
}

} // namespace

FontDialog::FontDialog(QWidget* parent, const ViewFont& font, Color color)
    : QDialog(parent), given_(font), color_(color) {
    auto* form = new QFormLayout(this);
    AddFaceAndStyle(*form);
    AddSize(*form);
    AddEffects(*form);
    AddScript(*form);
    AddSample(*form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ShowColor();
    face_->setFocus();
}

void FontDialog::AddFaceAndStyle(QFormLayout& form) {
    face_ = new QFontComboBox;
    face_->setEditable(false);
    face_->setStyleSheet(QStringLiteral("combobox-popup: 0")); // a list below, not over the screen
    face_->setMaxVisibleItems(maxFaceListLength);
    face_->setPlaceholderText(ToQt(given_.name)); // shown of a face that is not installed
    face_->setCurrentIndex(face_->findText(ToQt(given_.name), Qt::MatchFixedString));
    shownFace_ = face_->currentIndex();
    connect(face_, &QComboBox::currentIndexChanged, this, &FontDialog::ShowSample);
    form.addRow(tr("&Font:"), face_);

    style_ = new QComboBox;
    style_->addItems({tr("Regular"), tr("Italic"), tr("Bold"), tr("Bold Italic")});
    style_->setCurrentIndex((given_.bold ? 2 : 0) + (given_.italic ? 1 : 0));
    connect(style_, &QComboBox::currentIndexChanged, this, &FontDialog::ShowSample);
    form.addRow(tr("&Style:"), style_);
}

void FontDialog::AddSize(QFormLayout& form) {
    size_ = new SizeBox;
    size_->setDecimals(2);
    size_->setRange(minSize, maxSize);
    size_->setValue(MakeFont(given_).pointSizeF());
    shownSize_ = size_->value();
    connect(size_, &QDoubleSpinBox::valueChanged, this, &FontDialog::ShowSample);
    form.addRow(tr("Si&ze:"), size_);
}

void FontDialog::AddEffects(QFormLayout& form) {
    strikethrough_ = new CheckBox(tr("Stri&keout"));
    strikethrough_->setChecked(given_.strikethrough);
    underline_ = new CheckBox(tr("&Underline"));
    underline_->setChecked(given_.underline);
    for (QCheckBox* box : {strikethrough_, underline_})
        connect(box, &QCheckBox::toggled, this, &FontDialog::ShowSample);
    colorButton_ = new QPushButton(tr("Co&lor..."));
    colorButton_->setAutoDefault(false); // Enter confirms the dialog wherever the focus is
    connect(colorButton_, &QPushButton::clicked, this, &FontDialog::AskForColor);

    auto* row = new QHBoxLayout;
    row->addWidget(strikethrough_);
    row->addWidget(underline_);
    row->addStretch();
    row->addWidget(colorButton_);
    form.addRow(tr("Effects:"), row);
}

void FontDialog::AddScript(QFormLayout& form) {
    script_ = new QComboBox;
    for (const FontScript& script : FontScripts())
        script_->addItem(tr(script.name), script.charset);
    if (script_->findData(given_.charset) < 0)
        script_->addItem(tr("Other (%1)").arg(given_.charset), given_.charset);
    script_->setCurrentIndex(script_->findData(given_.charset));
    connect(script_, &QComboBox::currentIndexChanged, this, &FontDialog::ShowSample);
    form.addRow(tr("Sc&ript:"), script_);
}

// Of one height, so that the dialog stays as it is while the size changes.
void FontDialog::AddSample(QFormLayout& form) {
    sample_ = new QLabel;
    sample_->setTextFormat(Qt::PlainText);
    sample_->setAlignment(Qt::AlignCenter);
    sample_->setFixedHeight(sampleHeight);
    sample_->setMinimumWidth(sampleWidth);
    sample_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    sample_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    sample_->setAutoFillBackground(true);
    form.addRow(tr("Sample:"), sample_);
}

ViewFont FontDialog::Chosen() const {
    ViewFont font = given_;
    if (face_->currentIndex() != shownFace_) font.name = FromQt(face_->currentText());
    if (size_->value() != shownSize_) font.size = size_->value();
    font.charset = script_->currentData().toInt();
    font.bold = style_->currentIndex() / 2;
    font.italic = style_->currentIndex() % 2;
    font.underline = underline_->isChecked();
    font.strikethrough = strikethrough_->isChecked();
    return font;
}

void FontDialog::AskForColor() {
    const ColorAnswer answer = AskColor(this, tr("Color"), color_);
    if (answer.result != DialogResult::Ok) return;
    color_ = answer.color;
    ShowColor();
}

void FontDialog::ShowColor() {
    QPixmap swatch(swatchWidth, fontMetrics().ascent());
    swatch.fill(ToQColor(color_));
    colorButton_->setIcon(swatch);
    colorButton_->setIconSize(swatch.size());
    ShowSample();
}

void FontDialog::ShowSample() {
    const QColor text = ToQColor(color_), paper = palette().color(QPalette::Base);
    QPalette colors = sample_->palette();
    colors.setColor(QPalette::WindowText, text);
    colors.setColor(QPalette::Window, Contrast(text, paper) ? paper : ReadableOn(text));
    sample_->setPalette(colors);
    sample_->setFont(MakeFont(Chosen()));
    sample_->setText(QString::fromUtf16(SampleOf(script_->currentData().toInt())));
}
