#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <optional>
#include <vector>

// Where a thing is on the bus for accessibility.
struct Reference {
  QString service, path;
};

// What a screen reader finds of a thing on screen.
struct Read {
  Reference at;
  QString role, name, description, text;
  std::optional<double> value;
  bool enabled = false, checked = false;
};

// A session with buses and a display of its own, and what reads the programs of that session as a
// screen reader does: through AT-SPI. One at a time in a process.
class ScreenReader {
 public:
  ScreenReader();
  ~ScreenReader();

  bool works() const { return accessibility_ && accessibility_->isConnected(); }
  // For programs of the session.
  QProcessEnvironment environment() const;

  // All that a program shows, in the order of its tree; nothing while there is none.
  std::vector<Read> read() const;
  bool press(const Read& thing) const;  // false: it can't be pressed

 private:
  QDBusMessage call(const Reference& on, const char* interface, const char* method,
                    const QVariantList& arguments = {}) const;
  QVariant property(const Reference& of, const char* interface, const char* name) const;
  std::vector<Reference> childrenOf(const Reference& parent) const;
  void read(const Reference& from, std::vector<Read>& all) const;

  QTemporaryDir folder_;
  QProcess session_, display_;
  QString address_, number_;
  std::optional<QDBusConnection> accessibility_;
};
