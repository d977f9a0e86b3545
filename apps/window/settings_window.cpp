#include "apps/window/settings_window.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSocketNotifier>
#include <algorithm>

#include "apps/window/icons.h"
#include "apps/window/tools.h"
#include "host/describe.h"
#include "host/go_to.h"
#include "host/named.h"

void qml_register_types_Quorvantis_Settings();

namespace window {
namespace {

// Texts that are there keep the family that they were made with.
void setFamily(QQuickItem* item, const QString& family) {
  const QVariant font = item->property("font");
  if (font.typeId() == QMetaType::QFont) {
    QFont changed = font.value<QFont>();
    changed.setFamily(family);
    item->setProperty("font", changed);
  }
  for (QQuickItem* child : item->childItems()) setFamily(child, family);
}

}  // namespace

SettingsWindow::SettingsWindow(host::Application& application, QtMainQueue& queue,
                               const Start& start)
    : application_(application), bridge_(application) {
  connect(&queue, &QtMainQueue::ran, &bridge_, [&application] { application.buildVisibleRows(); });
  connect(qApp, &QGuiApplication::applicationStateChanged, &bridge_,
          [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive) bridge_.activate();
          });
  connect(&desktop_, &Desktop::fontChanged, this, &SettingsWindow::takeFont);
  if (!start.opened.empty()) reopen(start.opened);
  qml_register_types_Quorvantis_Settings();
  engine_.addImportPath("qrc:/qt/qml");
  engine_.addImageProvider("icons", new Icons);
  QVariantMap properties{{"settings", QVariant::fromValue(&bridge_)}};
  if (!start.size.isEmpty())
    properties.insert({{"width", start.size.width()}, {"height", start.size.height()}});
  if (start.desktop) {
    bridge_.setAnnounces(start.desktop->isConnected());
    portal_.emplace(desktop_, *start.desktop);  // which answers while the window is made
    properties.insert("visible", false);
  }
  engine_.setInitialProperties(properties);
  engine_.load("qrc:/qt/qml/Quorvantis/Settings/Main.qml");
  if (!start.desktop || !quickWindow()) return;
  portal_->await();
  quickWindow()->show();
}

host::ListReader::MakeSource sourcesBeside(const host::Device& device) {
  return [&device] {
    const std::shared_ptr<host::Device> own = device.another();
    const auto takeProblems = [own] {
      auto problems = own->takeProblems(host::Severity::Failure);
      for (auto& warning : own->takeProblems(host::Severity::Warning))
        problems.push_back(std::move(warning));
      return problems;
    };
    return host::ListReader::Source{own, own->environment(), takeProblems};
  };
}

host::ListReader::Post postTo(QObject& context) {
  return [&context](host::ListReader::Task task) {
    QMetaObject::invokeMethod(&context, std::move(task), Qt::QueuedConnection);
  };
}

void SettingsWindow::attach(host::Device& device, const host::ListReader* lists) {
  bridge_.setLists(lists);
  bridge_.setTools(new Tools(bridge_, application_, device));
  bridge_.recovery()->setDevice(&device);
  bridge_.undo()->setDevice(&device);
  following_ = std::make_unique<host::Following>(device.environment(), application_);
  bridge_.refresh();
  if (following_->descriptor() < 0) return;
  auto* notifier = new QSocketNotifier(following_->descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] {
    if (following_->look()) emit bridge_.tools()->storedChanged();
  });
}

void SettingsWindow::reopen(const std::string& id) {
  const auto rows = host::describe(application_).pages.back().rows;
  const auto found = std::ranges::find(rows, id, &host::RowView::id);
  if (found == rows.end() || found->kind != host::RowKind::Link) return;
  const int row = static_cast<int>(found - rows.begin());
  static_cast<void>(application_.perform(host::Scroll{row}));
  static_cast<void>(application_.perform(host::Tap{row}));
}

void SettingsWindow::takeFont() {
  if (QQuickWindow* shown = quickWindow())
    setFamily(shown->contentItem(), QGuiApplication::font().family());
}

void SettingsWindow::showRow(const std::string& id) {
  const std::string page(application_.shownPage()->className());
  if (const auto row = host::goTo(application_, page, id)) bridge_.shown()->mark(*row);
}

host::Outcome<host::Done> SettingsWindow::showPage(const std::string& page,
                                                   const std::string& row) {
  if (page.empty())
    return bridge_.tools()->show(std::string(application_.pages().front()->className()), row);
  const auto named = host::pageNamed(application_.environment().bundle, page);
  if (!named) return named.error();
  return bridge_.tools()->show(*named, row);
}

void SettingsWindow::raise() {
  QQuickWindow* const shown = quickWindow();
  shown->setWindowStates(shown->windowStates() & ~Qt::WindowMinimized);
  shown->show();
  shown->raise();
  shown->requestActivate();
}

void SettingsWindow::report(const host::Problem& problem) {
  QMetaObject::invokeMethod(&bridge_, [this, problem] { application_.report(problem); });
}

void SettingsWindow::withdraw(const host::Problem& problem) {
  QMetaObject::invokeMethod(&bridge_, [this, problem] { application_.withdraw(problem); });
}

QQuickWindow* SettingsWindow::quickWindow() const {
  auto roots = engine_.rootObjects();
  return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.first());
}

}  // namespace window
