#include "platform/qt/dialogs/file_dialog.h"

#include "platform/qt/dialogs/file_filter.h"
#include "platform/qt/qt_text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
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
    void accept() override {
        const QStringList files = selectedFiles();
        if (const QString typed = TypedFile(); !typed.isEmpty() && files.value(0) != typed)
            list_->clearSelection(); // which a folder passed on the way to the name may have left
        QFileDialog::accept();
    }

    void showEvent(QShowEvent* event) override {
        if (!open_) AdoptWidgets();
        QFileDialog::showEvent(event);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == open_ && event->type() == QEvent::EnabledChange) AllowTypedFile();
        if (object == completions_ && OpensTyped(*event)) return true;
        return QFileDialog::eventFilter(object, event);
    }

  private:
    // Those of Qt's own dialog; the desktop's has others, of its own process or toolkit.
    void AdoptWidgets() {
        const auto* buttons = findChild<QDialogButtonBox*>();
        open_ = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
        name_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        list_ = findChild<QListView*>(QStringLiteral("listView"));
        if (!open_ || !name_ || !list_) return;
        open_->installEventFilter(this);
        connect(name_, &QLineEdit::textChanged, this, &FileDialog::AllowTypedFile);
        completions_ = name_->completer() ? name_->completer()->popup() : nullptr;
        if (completions_) completions_->installEventFilter(this);
        auto* label = findChild<QLabel*>(QStringLiteral("fileTypeLabel"));
        auto* types = findChild<QWidget*>(QStringLiteral("fileTypeCombo"));
        if (label && types) label->setBuddy(types);
    }

    // The file whose name or path is in the box; "" for none.
    QString TypedFile() const {
        if (!name_ || !list_ || name_->text().isEmpty()) return {};
        const QFileInfo file(directory(), name_->text());
        return file.isFile() ? file.absoluteFilePath() : QString();
    }

    // Qt greys the button for a file that the filter hides, but would open it.
    void AllowTypedFile() {
        if (!open_->isEnabled() && !TypedFile().isEmpty()) open_->setEnabled(true);
    }

    // The list of completions comes up when it has been read, and would take the key for itself:
    // also from a name that is complete, with nothing picked from the list.
    bool OpensTyped(const QEvent& event) {
        if (event.type() != QEvent::KeyPress) return false;
        const int key = static_cast<const QKeyEvent&>(event).key();
        const bool confirms = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (!confirms || completions_->selectionModel()->hasSelection()) return false;
        completions_->hide();
        open_->click();
        return true;
    }

    const QStringList filters_;
    QPushButton* open_ = nullptr;
    QLineEdit* name_ = nullptr;
    QListView* list_ = nullptr;
    QAbstractItemView* completions_ = nullptr;
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
