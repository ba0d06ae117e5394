// The port of the desktop: other programs, and this one's other instances.
#pragma once

#include "platform/instance.h"

#include <functional>
#include <string>

class Shell {
  public:
    virtual ~Shell() = default;
    // The program that edits plain text when the user has chosen none: a full path.
    virtual std::u16string DefaultTextEditor() const = 0;
    // Starts a program, detached and without a shell between, with one argument that reaches it as
    // it is. Failures are not reported.
    virtual void OpenWith(const std::u16string& program, const std::u16string& argument) = 0;
    // Gives an address to the program that the desktop has for its scheme. What
    // `IsProgramAddress` does not take is not opened. Failures are not reported.
    virtual void OpenAddress(const std::u16string& address) = 0;
    // Opens a file, by its full path, with the program that the desktop has for its kind. That may
    // run the file, if it is a program: what may be opened so is for the caller to know. Failures
    // are not reported.
    virtual void OpenFile(const std::u16string& path) = 0;
    // The user has opened this book (a full path): for the desktop's list of recent documents,
    // unless that is told to keep none. Failures are not reported.
    virtual void AddRecentDocument(const std::u16string& path) = 0;
    // Claims the data file for the life of the process. What was granted ends with the process,
    // however that ends.
    virtual InstanceClaim ClaimDataFile(const std::u16string& path) = 0;

    // Hands a book (full path, "" for none) to the instance of this user that has claimed the data
    // file, together with this start's right to come to the front. Waits for an answer at most
    // that long; that nobody is there it says at once.
    virtual HandOver HandOverBook(const std::u16string& dataFile, const std::u16string& book,
                                  int milliseconds) = 0;
    // In the instance that has claimed the data file: another start of the same user asks for
    // something. Told from the event loop, also while a dialog or a menu is open; the other has its
    // answer by then. Without a handler it is refused.
    std::function<void(const StartRequest&)> onStartRequest;
};
