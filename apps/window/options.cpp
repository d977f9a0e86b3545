#include "apps/window/options.h"

#include <QCommandLineParser>
#include <chrono>

namespace window {
namespace {

// For each lock that another program holds: a set takes two, a load some more.
constexpr std::chrono::milliseconds kLockPatience{250};

host::Refusal wrongUse(const QString& message) {
  return {host::RefusalCode::BadRequest, message.toStdString()};
}

}  // namespace

const char* const kUsage =
    "usage: quorvantis-settings [--root DIR] [--contacts DIR] [--page CLASS] [--row ID]\n"
    "\n"
    "  --root DIR      the device root (else QUORVANTIS_ROOT, else $XDG_DATA_HOME/quorvantis)\n"
    "  --contacts DIR  another vCard folder\n"
    "  --page CLASS    another page in place of the first, by class or title\n"
    "                  (\"quorvantis pages\" lists them)\n"
    "  --row ID        scrolls to that row of the page and marks it (\"quorvantis search\" finds "
    "it)\n"
    "  --version, -V   the version\n"
    "  --help, -h      this text\n"
    "\n"
    "Where a window of the same root is open on the same display, that one shows the page.\n";

host::Outcome<Options> readOptions(const QStringList& arguments) {
  const QCommandLineOption help(QStringList{"h", "help"}), version(QStringList{"V", "version"}),
      root("root", {}, "DIR"), contacts("contacts", {}, "DIR"), page("page", {}, "CLASS"),
      row("row", {}, "ID");
  QCommandLineParser parser;
  parser.addOptions({help, version, root, contacts, page, row});
  if (!parser.parse(arguments)) return wrongUse(parser.errorText());
  if (!parser.positionalArguments().isEmpty())
    return wrongUse("unexpected argument '" + parser.positionalArguments().first() + "'.");

  Options options;
  options.device.lockPatience = kLockPatience;
  options.device.state = host::defaultState();
  options.device.realTime = true;
  options.help = parser.isSet(help);
  options.version = parser.isSet(version);
  options.device.root = parser.isSet(root) ? parser.value(root).toStdString() : host::defaultRoot();
  if (options.device.root.empty()) return wrongUse("no device root: use --root DIR.");
  if (parser.isSet(contacts)) options.device.contacts = parser.value(contacts).toStdString();
  options.page = parser.value(page).toStdString();
  options.row = parser.value(row).toStdString();
  return options;
}

}  // namespace window
