#include "shell/messages.h"

#include "common/direction_controls.h"

Message BookMessage(const Messages& messages, const std::u16string& text, const char* topic) {
    Message message;
    message.text = WithoutDirectionControls(text); // it may name a file
    message.title = messages.productTitle + u" Message";
    message.icon = MessageIcon::Exclamation;
    message.helpButton = true;
    message.helpTopic = topic;
    return message;
}

void ShowBookMessage(Messages& messages, const std::u16string& text, const char* topic) {
    const Message message = BookMessage(messages, text, topic);
    if (messages.windowShown)
        messages.dialogs.ShowMessage(message);
    else
        messages.waiting.push_back(message);
}

void ShowPlainMessage(const Messages& messages, MessageIcon icon, MessageTitle title,
                      const std::u16string& text) {
    Message message;
    message.text = text;
    message.title = messages.productTitle;
    if (title == MessageTitle::ProductMessage) message.title += u" Message";
    message.icon = icon;
    messages.dialogs.ShowMessage(message);
}

bool ConfirmLoss(const Messages& messages, const std::u16string& whatWillBeLost) {
    Message question;
    question.text = whatWillBeLost + u"\r\nAre you sure you wish to continue?";
    question.title = messages.productTitle;
    question.icon = MessageIcon::Question;
    question.buttons = MessageButtons::OkCancel;
    question.cancelIsDefault = true;
    return messages.dialogs.ShowMessage(question) == DialogResult::Ok;
}

bool ConfirmForeignFile(const Messages& messages, const std::u16string& path,
                        const std::u16string& format) {
    Message question = BookMessage(
        messages, path + u"\r\nis " + format + u".\r\n\r\n" + messages.productTitle +
                      u" reads plain text, rich text and HTML. It can only show this file as "
                      u"signs without any meaning.\r\nDo you wish to see these?");
    question.buttons = MessageButtons::OkCancel;
    question.cancelIsDefault = true;
    return messages.dialogs.ShowMessage(question) == DialogResult::Ok;
}
