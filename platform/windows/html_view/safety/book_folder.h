// What a page may load: data: URLs, and files in its book's folder and below.
#pragma once

#include <string>
#include <string_view>

class BookFolder {
  public:
    BookFolder() = default; // allows no file
    explicit BookFolder(const std::wstring& bookPath);
    bool operator==(const BookFolder&) const = default;

    // Resolves symbolic links and junctions first. Called on the engine's threads, too.
    bool Allows(std::wstring_view url) const;

  private:
    bool Contains(const std::wstring& path) const;

    std::wstring folder_; // as in the book's path, with a trailing backslash; may be ""
    std::wstring real_;   // final path; "" when it cannot be opened
};
