#pragma once

#include "platform/foundation/user_file.h"

namespace host {

using foundation::Controls;
using foundation::Existing;
using foundation::kStandardStream;
using foundation::occupyStandardStreams;
using foundation::readUserFile;
using foundation::Stream;
using foundation::writeStream;
using foundation::writeUserFile;

}  // namespace host
