// The port of the desktop: other programs, and this one's other instances.
#pragma once

#include <string>

class Shell {
  public:
    virtual ~Shell() = default;
    // The program that edits plain text when the user has chosen none: a full path.
    virtual std::u16string DefaultTextEditor() const = 0;
    // Starts a program, detached and without a shell between, with one argument that reaches it as
    // it is. Nothing is told of failure.
    virtual void OpenWith(const std::u16string& program, const std::u16string& argument) = 0;
    // Gives an address to the program that the desktop has for its scheme. What
    // `IsProgramAddress` does not take is not opened. Nothing is told of failure.
    virtual void OpenAddress(const std::u16string& address) = 0;
    // Takes the lock of this name for the life of the process; false while another process holds
    // it. The lock dies with its process, however that ends.
    virtual bool BecomeOnlyInstance(const std::u16string& name) = 0;
};
