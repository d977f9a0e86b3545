#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Texts as a user types them: the letters A to Z are the same in either case.
namespace host {

std::string lowerCase(std::string_view text);
bool equalInAnyCase(std::string_view a, std::string_view b);

// How many letters have to be replaced, added, removed or swapped with the next one (the optimal
// string alignment distance), counted in bytes.
std::size_t typosBetween(std::string_view a, std::string_view b);

// The index of the text that equals this one, else of the one that does in any case, if it is the
// only one.
std::optional<std::size_t> indexNamed(std::string_view text, const std::vector<std::string>& among);

// The nearest text, if one is near: begins with this one, or differs by no more than a third of its
// letters. Of two as near, the one that begins with this one. Never one with other digits where
// both have some, nor a number for what has none.
std::optional<std::string> closest(std::string_view text, const std::vector<std::string>& among);

// The end of a message: `; did you mean "wifi"?`. Empty where nothing is near.
std::string didYouMean(std::string_view text, const std::vector<std::string>& among);

}  // namespace host
