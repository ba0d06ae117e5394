// The pictures of a page: read where they are seen, their sizes where they are laid out.
#pragma once

#include "formats/pictures/picture_header.h"
#include "view/html/page_files.h"
#include "view/page/page_box.h"
#include "view/picture_store.h"

#include <cstdint>
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

    // CSS pixels; empty if it cannot be shown.
    Size NaturalSize(HtmlNodeId image);
    // Whether an `object` is a picture that can be shown; what is in it stands for it otherwise.
    bool ShowsObject(HtmlNodeId object);
    bool Draw(Canvas& canvas, HtmlNodeId image, const Rect& box); // see PictureStore

    // From here on only so much is decoded as keeps the window responsive; Draw leaves out the
    // others, which come with the next frames. Without a frame, as on paper, all are drawn.
    void StartFrame();
    bool AreLeftOut() const { return leftOut_; }
    bool ResetLeftOut(); // whether some were left out since the last call

  private:
    struct Known {
        PictureHeader header;
        Size size; // empty if it cannot be shown
    };
    bool IsDrawing(HtmlNodeId image) const; // an `svg` of the page itself
    std::u16string_view AddressOf(HtmlNodeId image) const;
    const Known& KnownOf(HtmlNodeId image);
    Known ReadKnown(HtmlNodeId image) const;
    PictureHeader HeaderOf(std::u16string_view address, std::string& start) const;
    const Picture& Read(HtmlNodeId image);
    std::string BytesOf(HtmlNodeId image, PictureFormat format) const;
    std::int64_t CostOf(HtmlNodeId image, const Rect& box);

    const LoadedPage& page_;
    const PageFiles& files_;
    PictureStore& store_;
    std::unordered_map<std::u16string, HtmlNodeId> numbers_; // of the pictures in no element
    std::vector<std::u16string_view> addresses_;             // of these, in the order of numbers
    std::unordered_map<HtmlNodeId, Known> known_;
    int objectsQueried_ = 0;
    std::list<Picture> recent_; // with their bytes; the last one drawn first
    std::size_t bytes_ = 0;     // of those
    bool inFrame_ = false, leftOut_ = false;
    std::int64_t frameCost_ = 0; // pixels that were decoded
};
