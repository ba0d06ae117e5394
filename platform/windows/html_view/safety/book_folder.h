// What a page may load: data that it brings along, and files in its book's folder and below.
#pragma once

#include <string>
#include <string_view>

class BookFolder {
  public:
    BookFolder() = default; // of no book: no file
    explicit BookFolder(const std::wstring& bookPath);
    bool operator==(const BookFolder&) const = default;

    // Links in the file system are followed first. Called on threads of the engine's, too.
    bool Allows(std::wstring_view url) const;

  private:
    bool Contains(const std::wstring& path) const;

    std::wstring folder_; // as the book's path has it, with its last backslash; "" for none
    std::wstring real_;   // and as the system names it; "" when it cannot be looked up
};
