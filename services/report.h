#pragma once

#include <functional>
#include <string>

namespace services {

// Is called with what a service passes over in silence, in a human-readable sentence.
using Report = std::function<void(const std::string& message)>;

}  // namespace services
