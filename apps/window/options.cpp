#include "apps/window/options.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace window {
namespace {

// A window of this width or more is a tablet's.
constexpr int kTabletWidth = 700;
// A click must not freeze the window for longer than this.
constexpr std::chrono::milliseconds kLockPatience{250};

const QStringList kSteps{"tap", "bar", "press", "pick", "select", "drag", "scroll"};

std::optional<QSize> sizeIn(const QString& text) {
  static const QRegularExpression form("^([1-9][0-9]{1,4})x([1-9][0-9]{1,4})$");
  auto match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

std::vector<Step> stepsIn(const QCommandLineParser& parser) {
  QHash<QString, qsizetype> seen;
  std::vector<Step> steps;
  for (const QString& name : parser.optionNames())
    if (kSteps.contains(name)) steps.push_back({name, parser.values(name).value(seen[name]++)});
  return steps;
}

}  // namespace

const char* const kUsage =
    "usage: quorvantis-settings [--root DIR] [--contacts DIR]\n"
    "\n"
    "  --root DIR      the device root (else QUORVANTIS_ROOT, else $XDG_DATA_HOME/quorvantis)\n"
    "  --contacts DIR  another vCard folder\n"
    "  --help          this text\n";

platform::Result<Options, QString> readOptions(const QStringList& arguments) {
  const QCommandLineOption help(QStringList{"h", "help"}), root("root", {}, "DIR"),
      contacts("contacts", {}, "DIR"), page("page", {}, "CLASS"),
      screenshot("screenshot", {}, "FILE"), size("size", {}, "WxH"),
      appearance("appearance", {}, "light|dark");
  QCommandLineParser parser;
  parser.addOptions({help, root, contacts, page, screenshot, size, appearance});
  for (const QString& step : kSteps)
    parser.addOption({step, {}, step == "bar" ? QString() : QString("VALUE")});
  if (!parser.parse(arguments)) return parser.errorText();
  if (!parser.positionalArguments().isEmpty())
    return QString("unexpected argument '%1'.").arg(parser.positionalArguments().first());

  Options options;
  options.device.lockPatience = kLockPatience;
  options.help = parser.isSet(help);
  options.device.root = parser.isSet(root) ? parser.value(root).toStdString() : host::defaultRoot();
  if (options.device.root.empty()) return QString("no device root: use --root DIR.");
  if (parser.isSet(contacts)) options.device.contacts = parser.value(contacts).toStdString();
  options.page = parser.value(page).toStdString();
  if (parser.isSet(screenshot)) options.picture = Picture{parser.value(screenshot)};
  if (parser.isSet(size)) {
    auto wanted = sizeIn(parser.value(size));
    if (!wanted) return QString("--size is WxH.");
    options.size = *wanted;
  }
  if (options.size.width() >= kTabletWidth) options.device.idiom = uikit::Idiom::Tablet;
  options.steps = stepsIn(parser);
  if (!options.steps.empty() && !options.picture)
    return QString("--%1 is for a --screenshot.").arg(options.steps.front().action);
  if (parser.isSet(appearance)) {
    if (parser.value(appearance) != "light" && parser.value(appearance) != "dark")
      return QString("--appearance is light or dark.");
    options.dark = parser.value(appearance) == "dark";
  }
  return options;
}

}  // namespace window
