// The port of the dialogs: modal, owned by the main window.
#pragma once

#include "common/geometry.h"
#include "platform/text_view.h"

#include <functional>
#include <string>
#include <vector>

enum class MessageIcon {
    None,
    Information,
    Question,
    Exclamation,
    Critical,
    Application, // the program's own
};
enum class MessageButtons { Ok, OkCancel };

struct Message {
    std::u16string text; // lines end in CR LF
    std::u16string title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    bool cancelIsDefault = false;
    bool helpButton = false; // calls `onHelp` with `helpTopic`; the message stays
    std::string helpTopic;
};

enum class DialogResult { Failed = 0, Ok = 1, Cancel = 2 };

struct OpenFileRequest {
    std::u16string title;
    std::u16string filter; // "Name|pattern|Name|pattern|"
    // What is listed for each type of the filter, ";" between patterns. A type without patterns
    // here lists its own.
    std::vector<std::u16string> listed;
    std::u16string initialFolder;
    std::u16string fileName;
    int filterIndex = 1; // the type that the dialog begins with, from 1
};

struct OpenFileAnswer {
    DialogResult result = DialogResult::Cancel;
    std::u16string fileName; // full path; see Files for "?"
    int filterIndex = 1;     // the type in the dialog's box when the file was chosen
};

struct ColorAnswer {
    DialogResult result = DialogResult::Cancel;
    Color color = 0;
};

// How the shown text reads in one charset.
struct TextReading {
    std::u16string name, line;
    int charset = -1;             // of the font for its script; -1: any
    bool standsForScript = false; // chosen with that
};

struct FontRequest {
    std::u16string title;
    ViewFont font;
    Color color = 0;
    std::vector<TextReading> readings = {}; // to choose from, in this order; may be none
    int reading = -1;                       // the present one
};

struct FontAnswer {
    DialogResult result = DialogResult::Cancel;
    ViewFont font; // its charset is the chosen script
    Color color = 0;
    int reading = -1; // the chosen one; -1 when the script that was chosen has none
};

struct FindRequest {
    std::u16string title;
    ViewFont font; // of the text to find, so that its script can be read
    std::u16string text;
    bool wholeWord = false, matchCase = false;
    std::vector<std::u16string> history; // past searches, newest first
};

struct FindAnswer {
    DialogResult result = DialogResult::Cancel;
    std::u16string text;
    bool wholeWord = false, matchCase = false;
};

struct PlaceRequest {
    std::u16string title;
    int percent = 0; // of the place shown
    std::vector<Heading> headings;
    int heading = -1; // index of the one that the place is under
};

// Either a per cent or a heading: what the user chose last. Cancel also when nothing was chosen:
// the per cent shown is a rounded one, and going there would leave the place.
struct PlaceAnswer {
    DialogResult result = DialogResult::Cancel;
    int percent = 0;
    int heading = -1; // index in the request; -1: the per cent
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // An existing file; one that its type does not list can be chosen by typing its name or path.
    virtual OpenFileAnswer OpenFile(const OpenFileRequest&) = 0;
    // One line of text; "" when cancelled.
    virtual std::u16string AskText(const std::u16string& title, const std::u16string& prompt) = 0;
    virtual ColorAnswer ChooseColor(const std::u16string& title, Color start) = 0;
    // A reading that is chosen brings its script along, and a script its reading; but a text read
    // in any script stays so.
    virtual FontAnswer ChooseFont(const FontRequest&) = 0;
    virtual FindAnswer AskFind(const FindRequest&) = 0;
    // Its list has the headings with what is typed in them (`MatchingHeadings`).
    virtual PlaceAnswer AskPlace(const PlaceRequest&) = 0;
    virtual DialogResult ShowMessage(const Message&) = 0; // Cancel also when closed
    // A short rich text (RTF, pure ASCII) and buttons from the left. Returns the number of the
    // button that was pressed, from 1; 0 when closed without one. The first is the default button.
    virtual int ShowRichMessage(const std::string& rtf, const std::u16string& title,
                                const std::vector<std::u16string>& buttons) = 0;

    // The Help button of a message was pressed. May show a message itself.
    std::function<void(const std::string& topic)> onHelp;
};
