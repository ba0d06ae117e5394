#include "view/reading_object.h"

std::vector<std::size_t> ReadingChildren(const ReadingObjects& objects, std::size_t parent) {
    const bool all = parent == noReadingObject;
    std::vector<std::size_t> children;
    const std::size_t end = all ? objects.size() : objects[parent].end;
    for (std::size_t i = all ? 0 : parent + 1; i < end; i = objects[i].end)
        children.push_back(i);
    return children;
}

std::size_t InnermostAround(const ReadingObjects& objects, TextSpan span) {
    std::size_t innermost = noReadingObject;
    for (std::size_t i = 0; i < objects.size() && objects[i].span.start <= span.start; ++i) {
        const TextSpan& own = objects[i].span;
        if (own.start < own.end && own.end >= span.end && own.end > span.start) innermost = i;
    }
    return innermost;
}

std::vector<std::size_t> OutermostWithin(const ReadingObjects& objects, TextSpan span) {
    std::vector<std::size_t> within;
    for (std::size_t i = 0; i < objects.size();) {
        const TextSpan& own = objects[i].span;
        const bool isIn = own.start >= span.start && own.end <= span.end;
        const bool isAround = own.start <= span.start && own.end >= span.end;
        if (isIn) within.push_back(i);
        // What has all of the span and more is around it: those in it may be within.
        i = isIn || !isAround ? objects[i].end : i + 1;
    }
    return within;
}
