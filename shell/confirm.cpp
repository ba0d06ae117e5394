#include "shell/confirm.h"

#include "app/main_form.h"

bool ConfirmLoss(MainForm& form, const std::u16string& whatWillBeLost) {
    Message question;
    question.text = whatWillBeLost + u"\r\nAre you sure you wish to continue?";
    question.title = form.productTitle;
    question.icon = MessageIcon::Question;
    question.buttons = MessageButtons::OkCancel;
    question.cancelIsDefault = true;
    return form.ports.dialogs->ShowMessage(question) == DialogResult::Ok;
}
