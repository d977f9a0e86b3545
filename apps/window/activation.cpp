#include "apps/window/activation.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include "apps/window/values.h"

namespace window {
namespace {

constexpr const char* kInterface = "org.freedesktop.Application";
constexpr const char* kShow = "show";
constexpr int kPatience = 2000;  // milliseconds

// The errors by which a window refuses an action.
constexpr const char* kNotFound = "com.zorvek.quorvantis.Error.NotFound";
constexpr const char* kModal = "com.zorvek.quorvantis.Error.Modal";
constexpr const char* kOther = "com.zorvek.quorvantis.Error.OtherDevice";

// What a desktop passes on from the click to the window that it brings to the front.
struct Token {
  const char *key, *variable;
};
constexpr Token kTokens[] = {{"activation-token", "XDG_ACTIVATION_TOKEN"},
                             {"desktop-startup-id", "DESKTOP_STARTUP_ID"}};

// As the interface derives it from the name.
QString applicationPath() {
  return '/' + QString(kApplicationId).replace('.', '/');
}

QString canonical(const std::string& path) {
  const QFileInfo folder(QString::fromStdString(path));
  return folder.exists() ? folder.canonicalFilePath() : QDir::cleanPath(folder.absoluteFilePath());
}

QString display() {
  const bool wayland = QGuiApplication::platformName().startsWith("wayland");
  return qEnvironmentVariable(wayland ? "WAYLAND_DISPLAY" : "DISPLAY");
}

QStringList wantedBy(const Options& options) {
  QStringList place{QGuiApplication::platformName(), display(), canonical(options.device.root)};
  if (options.device.contacts) place << canonical(*options.device.contacts);
  return {place.join('\n'), toQString(options.page), toQString(options.row)};
}

QVariantMap platformData() {
  QVariantMap data;
  for (const Token& token : kTokens)
    if (qEnvironmentVariableIsSet(token.variable))
      data.insert(token.key, qEnvironmentVariable(token.variable));
  return data;
}

}  // namespace

const char* const kApplicationId = QUORVANTIS_APPLICATION_ID;

Activation::Activation(const QDBusConnection& bus, const Options& options)
    : bus_(bus), wanted_(wantedBy(options)) {
  if (!bus_.isConnected()) return;
  // The object before the name: whoever sees the name may call.
  bus_.registerObject(applicationPath(), this, QDBusConnection::ExportAllSlots);
  const auto taken = bus_.interface()->registerService(kApplicationId);
  isFirst_ = taken.value() == QDBusConnectionInterface::ServiceRegistered;
}

Activation::~Activation() {
  if (isFirst_) bus_.interface()->unregisterService(kApplicationId);
}

host::Outcome<bool> Activation::showInOther() {
  if (isFirst_ || !bus_.isConnected()) return false;
  auto call = QDBusMessage::createMethodCall(kApplicationId, applicationPath(), kInterface,
                                             "ActivateAction");
  call << kShow << QVariantList(wanted_.begin(), wanted_.end()) << platformData();
  call.setAutoStartService(false);
  const QDBusMessage reply = bus_.call(call, QDBus::Block, kPatience);
  if (reply.type() == QDBusMessage::ReplyMessage) return true;
  if (reply.errorName() == kNotFound)
    return host::Refusal{host::RefusalCode::NoPage, reply.errorMessage().toStdString()};
  if (reply.errorName() == kModal)
    return host::Refusal{host::RefusalCode::Modal, reply.errorMessage().toStdString()};
  return false;
}

void Activation::serve(SettingsWindow& settings) {
  settings_ = &settings;
  for (const auto& task : std::exchange(waiting_, {})) task();
}

void Activation::answer(const std::function<void()>& task) {
  if (settings_) return task();
  waiting_.push_back(task);
}

void Activation::raise(const QVariantMap& platformData) {
  for (const Token& token : kTokens)
    if (const auto value = platformData.value(token.key).toString(); !value.isEmpty())
      qputenv(token.variable, value.toUtf8());
  settings_->raise();
}

void Activation::Activate(const QVariantMap& platformData) {
  answer([this, platformData] { raise(platformData); });
}

void Activation::Open(const QStringList&, const QVariantMap&) {
  sendErrorReply(QDBusError::NotSupported, "this program opens no files");
}

void Activation::ActivateAction(const QString& name, const QVariantList& parameters,
                                const QVariantMap& platformData) {
  if (name != kShow || parameters.size() != wanted_.size())
    return sendErrorReply(QDBusError::InvalidArgs, "no such action");
  if (parameters[0] != wanted_[0])
    return sendErrorReply(kOther, "the window is of another device root or display");
  setDelayedReply(true);
  answer([this, parameters, platformData, call = message(), bus = connection()] {
    const auto page = parameters[1].toString().toStdString(),
               row = parameters[2].toString().toStdString();
    if (!page.empty() || !row.empty())
      if (const auto shown = settings_->showPage(page, row); !shown) {
        const bool isModal = shown.error().code == host::RefusalCode::Modal;
        bus.send(
            call.createErrorReply(isModal ? kModal : kNotFound, toQString(shown.error().message)));
        return;
      }
    raise(platformData);
    bus.send(call.createReply());
  });
}

}  // namespace window
