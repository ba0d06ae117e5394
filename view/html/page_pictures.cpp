#include "view/html/page_pictures.h"

#include "formats/picture_files.h"

#include <algorithm>

namespace {
constexpr std::uint64_t maxFileBytes = 32 << 20;
constexpr std::size_t maxKeptBytes = 32 << 20;
// Where the size stands: a JPEG may have two segments of 64 KB before it, with a small picture and
// a colour profile.
constexpr std::size_t headerBytes = 256 << 10;

Picture PictureFrom(HtmlNodeId image, std::string bytes) {
    Picture picture;
    picture.position = TextPos(image); // by which a store tells pictures apart
    picture.format = FormatOfPicture(bytes);
    picture.bytes = std::move(bytes);
    return picture;
}
} // namespace

PagePictures::PagePictures(const LoadedPage& page, const PageFiles& files, PictureStore& store)
    : page_(page), files_(files), store_(store) {
    store_.Clear();
}

HtmlNodeId PagePictures::PictureOf(const PageBox& box) {
    if (!box.generated) return box.node;
    const auto next = HtmlNodeId(page_.Tree().NodeCount() + 1 + addresses_.size());
    const auto [number, isNew] = numbers_.try_emplace(box.generated->text, next);
    if (isNew) addresses_.push_back(number->first);
    return number->second;
}

std::u16string_view PagePictures::Address(HtmlNodeId image) const {
    const std::size_t nodes = page_.Tree().NodeCount();
    if (image > nodes) return addresses_[image - nodes - 1];
    const HtmlAttribute* source = page_.Tree()[image].Attribute(HtmlName::Src);
    return source ? source->Value() : std::u16string_view();
}

Size PagePictures::NaturalSize(HtmlNodeId image) {
    const auto known = sizes_.find(image);
    if (known != sizes_.end()) return known->second;
    const Picture picture = PictureFrom(image, files_.ReadStart(Address(image), headerBytes));
    return sizes_[image] = store_.NaturalSize(picture);
}

const Picture& PagePictures::Read(HtmlNodeId image) {
    const auto kept = std::ranges::find(recent_, TextPos(image), &Picture::position);
    if (kept != recent_.end()) {
        recent_.splice(recent_.begin(), recent_, kept);
        return recent_.front();
    }
    recent_.push_front(PictureFrom(image, files_.Read(Address(image), maxFileBytes)));
    bytes_ += recent_.front().bytes.size();
    while (recent_.size() > 1 && bytes_ > maxKeptBytes) {
        bytes_ -= recent_.back().bytes.size();
        recent_.pop_back();
    }
    return recent_.front();
}

bool PagePictures::Draw(Canvas& canvas, HtmlNodeId image, const Rect& box) {
    return store_.Draw(canvas, Read(image), box);
}
