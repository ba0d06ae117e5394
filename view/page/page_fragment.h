// Laid-out boxes of a page: a stretch of its flow, or a box that is laid out by itself, such as a
// cell, a float or a block in a line. Lengths are device pixels from the fragment's top left
// corner.
#pragma once

#include "view/page/inline_layout.h"
#include "view/page/page_box.h"

#include <memory>

struct PageFragment;
using PageFragmentPtr = std::shared_ptr<const PageFragment>;

// The border box of an element that has a background or a border.
struct PlacedBox {
    PageBoxId box = noPageBox;
    double left = 0, top = 0, width = 0, height = 0;
    bool beginsAbove = false, endsBelow = false; // of the fragment
    bool isColumnRule = false;                   // not the box, but a line between its columns
    double gapLeft = 0, gapRight = 0; // of the border above, from `left` on: a legend stands there
};

struct PlacedPart {
    double left = 0, top = 0;
    PageFragmentPtr fragment;
    bool isPositioned = false; // out of the flow, beside other text
};

struct PlacedImage {
    PageBoxId box = noPageBox;
    double left = 0, top = 0, width = 0, height = 0; // of its content
    bool isFrame = false; // of one that cannot be shown, around the text that stands for it
};

struct PlacedLines {
    PageBoxId box = noPageBox;
    std::shared_ptr<const InlineContent> content;
    InlineLayout layout;
};

struct PageFragment {
    double width = 0, height = 0;
    double headTop = 0, headBottom = 0; // of a table: the rows that each sheet of it begins with
    std::vector<PlacedBox> boxes;       // the outer ones first
    std::vector<PlacedImage> pictures;
    std::vector<PlacedLines> lines;
    std::vector<PlacedPart> parts;
};

// How much a fragment has of each.
struct FragmentMark {
    std::size_t boxes = 0, pictures = 0, lines = 0, parts = 0;
};
FragmentMark EndOf(const PageFragment& fragment);
// Moves all that was added since.
void MoveSince(const FragmentMark& mark, double x, double y, PageFragment& fragment);

// How far to the right anything of it reaches, from where its left edge is `left`.
double RightEdge(const PageFragment& fragment, double left = 0);

// Letters or digits, or a picture.
bool HasWords(const PageFragment& fragment);
// How far down anything of it can be seen: blank lines cannot.
double VisibleBottom(const PageFragment& fragment);

// Of the last line, from the top, and of the highest one; negative without a line.
double LastBaseline(const PageFragment& fragment);
double FirstBaseline(const PageFragment& fragment);

// A block that is to be as high as what is beside it, with its content so much further down.
PageFragmentPtr Stretched(const PageFragmentPtr& block, double height, double shift = 0);
