#pragma once

#include <string>
#include <string_view>

#include "host/application.h"

// Pages and rows as a user names them on a command line. A refusal says what lists them, and which
// one may be meant.
namespace host {

// The class of the page that findPage finds; NoPage where there is none.
Outcome<std::string> pageNamed(const preferences::Bundle& bundle, std::string_view name);

// The shown page's row of that id; NoRow where there is none.
Outcome<preferences::PSSpecifier*> rowNamed(const Application& application, const std::string& id);

}  // namespace host
