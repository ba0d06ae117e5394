// The pictures of a page: read where they are seen, their sizes where they are laid out.
#pragma once

#include "view/html/page_files.h"
#include "view/page/page_box.h"
#include "view/picture_store.h"

#include <list>
#include <string>
#include <unordered_map>
#include <vector>

class PagePictures {
  public:
    // All must outlive this object. What the store knows of another page is forgotten.
    PagePictures(const LoadedPage& page, const PageFiles& files, PictureStore& store);

    // The element of a picture's box, or a number above them for one that is in no element.
    HtmlNodeId PictureOf(const PageBox& box);

    Size NaturalSize(HtmlNodeId image); // pixels of the file; empty if it cannot be read
    bool Draw(Canvas& canvas, HtmlNodeId image, const Rect& box); // see PictureStore

  private:
    const Picture& Read(HtmlNodeId image);
    std::u16string_view Address(HtmlNodeId image) const;

    const LoadedPage& page_;
    const PageFiles& files_;
    PictureStore& store_;
    std::unordered_map<std::u16string, HtmlNodeId> numbers_; // of the pictures in no element
    std::vector<std::u16string_view> addresses_;             // of these, in the order of numbers
    std::unordered_map<HtmlNodeId, Size> sizes_;
    std::list<Picture> recent_; // with their bytes; the last one drawn first
    std::size_t bytes_ = 0;     // of those
};
