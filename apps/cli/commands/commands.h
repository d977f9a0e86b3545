#pragma once

#include <span>

#include "apps/cli/command_line.h"

namespace cli {

// All commands, in the order of the help.
std::span<const Command> commands();

Run declarePages(CLI::App& app, Session& session);
Run declarePage(CLI::App& app, Session& session);
Run declareGet(CLI::App& app, Session& session);
Outcome<Done> get(Session& session, const std::string& key);
Run declareSet(CLI::App& app, Session& session);
Run declareChoices(CLI::App& app, Session& session);
Run declareProfileList(CLI::App& app, Session& session);
Run declareProfileSave(CLI::App& app, Session& session);
Run declareProfileLoad(CLI::App& app, Session& session);
Run declareProfileDelete(CLI::App& app, Session& session);
Run declareProfileShow(CLI::App& app, Session& session);
Run declareProfileDiff(CLI::App& app, Session& session);
Run declareProfileExport(CLI::App& app, Session& session);
Run declareProfileImport(CLI::App& app, Session& session);
Run declareTriggers(CLI::App& app, Session& session);
Run declareLog(CLI::App& app, Session& session);
Run declareWatch(CLI::App& app, Session& session);
Run declareDefaultsRead(CLI::App& app, Session& session);
Run declareDefaultsWrite(CLI::App& app, Session& session);
Run declareDefaultsDelete(CLI::App& app, Session& session);
Run declareDrive(CLI::App& app, Session& session);

}  // namespace cli
