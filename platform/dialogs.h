// The port of the dialogs: modal, owned by the main window.
#pragma once

#include <string>

enum class MessageIcon { None, Information, Question, Exclamation };
enum class MessageButtons { Ok, OkCancel };

struct Message {
    std::u16string text; // lines end in CR LF
    std::u16string title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    bool cancelIsDefault = false;
    bool helpButton = false; // opens the help at `helpTopic`
    std::string helpTopic;
};

enum class DialogResult { Failed = 0, Ok = 1, Cancel = 2 };

struct OpenFileRequest {
    std::u16string title;
    std::u16string filter; // "Name|pattern|Name|pattern|"
    std::u16string initialFolder;
    std::u16string fileName;
    int filterIndex = 1; // from 1
};

struct OpenFileAnswer {
    DialogResult result = DialogResult::Cancel;
    std::u16string fileName; // full path; see Files for "?"
    int filterIndex = 1;
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    virtual OpenFileAnswer OpenFile(const OpenFileRequest&) = 0;
    virtual DialogResult ShowMessage(const Message&) = 0; // Cancel also when closed
    virtual void SetHelpFile(const std::u16string& path) = 0;
};
