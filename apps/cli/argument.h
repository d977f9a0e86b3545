#pragma once

#include <memory>
#include <string>

#include "apps/cli/cli11.h"

namespace cli {

// A required argument that must not be empty.
inline std::shared_ptr<std::string> addArgument(CLI::App& app, const char* name,
                                                const char* description) {
  auto text = std::make_shared<std::string>();
  app.add_option(name, *text, description)
      ->required()
      ->type_name("")
      ->check([](const std::string& given) {
        return std::string(given.empty() ? "must not be empty" : "");
      });
  return text;
}

}  // namespace cli
