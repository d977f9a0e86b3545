#pragma once

#include <string>
#include <vector>

namespace cli {

// A line sorted into what begins with "-" and is meant as an option, each followed by its value
// where it takes one, and all else, in order. "-int" and its like are spelled "--int" here.
struct SplitArguments {
  std::vector<std::string> options, others;
  std::string unfinished;  // the option at the end of the line that lacks its value
};

SplitArguments splitArguments(const std::vector<std::string>& arguments);

}  // namespace cli
