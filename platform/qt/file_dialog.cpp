#include "platform/qt/file_dialog.h"

#include "platform/qt/file_filter.h"
#include "platform/qt/qt_text.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace {

class FileDialog final : public QFileDialog {
  public:
    FileDialog(QWidget* owner, const OpenFileRequest& request)
        : QFileDialog(owner, ToQt(request.title), ToQt(request.initialFolder)),
          filters_(QtNameFilters(request)) {
        setFileMode(QFileDialog::ExistingFile);
        setOption(QFileDialog::HideNameFilterDetails); // the names tell the patterns, more legibly
        setLabelText(QFileDialog::FileType, QStringLiteral("Files of &type:"));
        setNameFilters(filters_);
        if (request.filterIndex >= 1 && request.filterIndex <= filters_.size())
            selectNameFilter(filters_[request.filterIndex - 1]);
        if (!request.fileName.empty()) selectFile(ToQt(request.fileName));
    }

    int FilterIndex() const { return NumberOfNameFilter(filters_, selectedNameFilter()); }

  protected:
    void showEvent(QShowEvent* event) override {
        if (!open_) AdoptWidgets();
        QFileDialog::showEvent(event);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == open_ && event->type() == QEvent::EnabledChange) AllowTypedFile();
        return QFileDialog::eventFilter(object, event);
    }

  private:
    // Those of Qt's own dialog; the desktop's has others, of its own process or toolkit.
    void AdoptWidgets() {
        const auto* buttons = findChild<QDialogButtonBox*>();
        const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        open_ = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
        if (!open_ || !name) return;
        open_->installEventFilter(this);
        connect(name, &QLineEdit::textChanged, this, &FileDialog::AllowTypedFile);
        auto* label = findChild<QLabel*>(QStringLiteral("fileTypeLabel"));
        auto* types = findChild<QWidget*>(QStringLiteral("fileTypeCombo"));
        if (label && types) label->setBuddy(types);
    }

    // Qt greys the button for a file that the filter hides, but would open it.
    void AllowTypedFile() {
        if (open_->isEnabled()) return;
        const QStringList files = selectedFiles();
        if (!files.isEmpty() && QFileInfo(files.constFirst()).isFile()) open_->setEnabled(true);
    }

    const QStringList filters_;
    QPushButton* open_ = nullptr;
};

} // namespace

OpenFileAnswer AskFile(QWidget* owner, const OpenFileRequest& request) {
    FileDialog dialog(owner, request);
    OpenFileAnswer answer;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return answer;
    // Qt puts U+FFFD for what it cannot decode in a name.
    answer.fileName = FromQt(dialog.selectedFiles().constFirst());
    std::ranges::replace(answer.fileName, u'\uFFFD', u'?');
    answer.filterIndex = dialog.FilterIndex();
    answer.result = DialogResult::Ok;
    return answer;
}
