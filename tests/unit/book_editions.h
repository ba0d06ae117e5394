// War and Peace as three writers made a file of it, read as text.
#pragma once

#include <filesystem>
#include <map>
#include <string>

// By "text", "rich text" and "page"; those that are in the folder.
std::map<std::string, std::u16string> Editions(const std::filesystem::path& books);

// The characters of a page's body, roughly as an engine counts them.
std::u16string TextOfPage(const std::string& bytes);

// Of `count` places in one edition, how many are found in another on the same words.
int PlacesFound(const std::u16string& from, const std::u16string& to, int count);
