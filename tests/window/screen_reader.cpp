#include "tests/window/screen_reader.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

namespace {

constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr const char* kAction = "org.a11y.atspi.Action";
constexpr const char* kSession = "screen-reader-session";
constexpr const char* kBus = "screen-reader";

// Of AtspiStateType.
constexpr unsigned kChecked = 4, kEnabled = 8;

QString firstLine(QProcess& process) {
  while (!process.canReadLine() && process.waitForReadyRead(10000)) {
  }
  return QString::fromLatin1(process.readLine()).trimmed();
}

}  // namespace

ScreenReader::ScreenReader() {
  // The bus for accessibility has a socket of a fixed name there.
  auto own = QProcessEnvironment::systemEnvironment();
  own.insert("XDG_RUNTIME_DIR", folder_.path());
  session_.setProcessEnvironment(own);
  session_.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
  display_.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1000x5200x24", "-nolisten", "tcp"});
  address_ = firstLine(session_);
  number_ = firstLine(display_);
  auto session = QDBusConnection::connectToBus(address_, kSession);
  // The session bus starts the one for accessibility.
  const auto answer = session.call(QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus",
                                                                  "org.a11y.Bus", "GetAddress"));
  if (answer.type() != QDBusMessage::ReplyMessage) return;
  accessibility_ = QDBusConnection::connectToBus(answer.arguments().value(0).toString(), kBus);
}

ScreenReader::~ScreenReader() {
  QDBusConnection::disconnectFromBus(kBus);
  QDBusConnection::disconnectFromBus(kSession);
  for (QProcess* process : {&display_, &session_}) {
    process->terminate();
    process->waitForFinished();
  }
}

QProcessEnvironment ScreenReader::environment() const {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DBUS_SESSION_BUS_ADDRESS", address_);
  environment.insert("DISPLAY", ':' + number_);
  environment.insert("QT_QPA_PLATFORM", "xcb");  // that without a display has no AT-SPI
  environment.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
  return environment;
}

QDBusMessage ScreenReader::call(const Reference& on, const char* interface, const char* method,
                                const QVariantList& arguments) const {
  auto message = QDBusMessage::createMethodCall(on.service, on.path, interface, method);
  message.setArguments(arguments);
  return accessibility_->call(message, QDBus::Block, 5000);
}

QVariant ScreenReader::property(const Reference& of, const char* interface,
                                const char* name) const {
  const auto answer =
      call(of, "org.freedesktop.DBus.Properties", "Get", {QString(interface), QString(name)});
  return answer.arguments().value(0).value<QDBusVariant>().variant();
}

std::vector<Reference> ScreenReader::childrenOf(const Reference& parent) const {
  std::vector<Reference> children;
  const auto answer = call(parent, kAccessible, "GetChildren");
  if (answer.type() != QDBusMessage::ReplyMessage) return children;
  const auto list = answer.arguments().value(0).value<QDBusArgument>();
  list.beginArray();
  while (!list.atEnd()) {
    QDBusObjectPath path;
    Reference child;
    list.beginStructure();
    list >> child.service >> path;
    list.endStructure();
    child.path = path.path();
    children.push_back(child);
  }
  return children;
}

void ScreenReader::read(const Reference& from, std::vector<Read>& all) const {
  for (const Reference& child : childrenOf(from)) {
    Read found;
    found.at = child;
    found.role = call(child, kAccessible, "GetRoleName").arguments().value(0).toString();
    found.name = property(child, kAccessible, "Name").toString();
    found.description = property(child, kAccessible, "Description").toString();
    const auto answer = call(child, kAccessible, "GetState");
    if (answer.type() != QDBusMessage::ReplyMessage) continue;  // it has gone meanwhile
    const auto states = qdbus_cast<QList<uint>>(answer.arguments().value(0));
    const uint state = states.value(0);
    found.checked = state & (1u << kChecked);
    found.enabled = state & (1u << kEnabled);
    const auto interfaces =
        call(child, kAccessible, "GetInterfaces").arguments().value(0).toStringList();
    if (interfaces.contains("org.a11y.atspi.Value"))
      found.value = property(child, "org.a11y.atspi.Value", "CurrentValue").toDouble();
    if (interfaces.contains("org.a11y.atspi.Text"))
      found.text =
          call(child, "org.a11y.atspi.Text", "GetText", {0, -1}).arguments().value(0).toString();
    all.push_back(found);
    read(child, all);
  }
}

bool ScreenReader::press(const Read& thing) const {
  const int actions = property(thing.at, kAction, "NActions").toInt();
  for (int i = 0; i < actions; ++i) {
    if (call(thing.at, kAction, "GetName", {i}).arguments().value(0).toString() != "Press")
      continue;
    return call(thing.at, kAction, "DoAction", {i}).arguments().value(0).toBool();
  }
  return false;
}

std::vector<Read> ScreenReader::read() const {
  std::vector<Read> all;
  const Reference registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
  for (const Reference& program : childrenOf(registry)) read(program, all);
  return all;
}
