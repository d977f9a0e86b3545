// A window of thirty switches, as anyone would write it.
#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  QQmlApplicationEngine engine("qrc:/qt/qml/Bench/Switches.qml");
  return QGuiApplication::exec();
}
