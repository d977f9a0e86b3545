#pragma once

#include "drive/json.h"

namespace cli {

using drive::Json;
using drive::plainTextOf;
using drive::textOf;
using drive::toJson;

}  // namespace cli
