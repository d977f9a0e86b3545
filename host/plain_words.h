#pragma once

#include <string>

#include "host/problem.h"

namespace host {

// What failed and why, as a sentence without the system's own terms: "The profile was not saved:
// the disk is full." An error of Backups that has a cause says itself what failed. Of profiles, one
// about files that were skipped names them without the reasons, which may be several, and one about
// a file that holds none says that it is damaged. Empty for any other error without a system's
// error number: its words are plain.
std::string plainWords(Source source, const platform::Error& error);

// The platform path of the file that lies behind an error; empty where it is about none.
std::string fileOf(const platform::Error& error);

}  // namespace host
