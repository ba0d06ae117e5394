// What the text of a view consists of besides its characters, for assistive technology: headings,
// links, lists, tables and pictures.
#pragma once

#include "view/caret_moves.h"

#include <cstdint>
#include <string>
#include <vector>

enum class ReadingObjectKind { Heading, Link, Picture, List, ListItem, Table, Row, Cell };

constexpr std::size_t noReadingObject = std::size_t(-1);
constexpr std::size_t maxReadingObjects = 50'000; // of a text; those after are left out

struct ReadingObject {
    ReadingObjectKind kind = ReadingObjectKind::Heading;
    TextSpan span;             // of its text; of a picture the place where it stands
    int level = 0;             // of a heading, from 1
    bool isNumbered = false;   // of a list
    int rows = 0, columns = 0; // of a table
    // What a picture shows; of others, what those in it show where it has no text to be called by.
    std::u16string name;
    std::u16string address; // of a link, as the book writes it
    std::uint32_t node = 0; // the view's own number for it
    // In the vector that it is in, which has them in the text's order: the one that it is in, and
    // after the last one within it.
    std::size_t parent = noReadingObject, end = 0;
};

using ReadingObjects = std::vector<ReadingObject>;

// The indices of those directly within one, or of the outermost ones.
std::vector<std::size_t> ReadingChildren(const ReadingObjects& objects,
                                         std::size_t parent = noReadingObject);

// The innermost one that has all of the span; noReadingObject for none.
std::size_t InnermostAround(const ReadingObjects& objects, TextSpan span);
// Those that lie in the span and in no other one of these.
std::vector<std::size_t> OutermostWithin(const ReadingObjects& objects, TextSpan span);
