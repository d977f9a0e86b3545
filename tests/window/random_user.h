#pragma once

#include <QQuickWindow>
#include <random>
#include <string>

#include "apps/window/desktop.h"

// What happens to a window at random: keys, the mouse, the wheel, sizes, the desktop's wishes,
// applications that come and leave, what another program stores. The same seed makes the same
// events. Nothing closes the window.
class RandomUser {
 public:
  RandomUser(unsigned seed, QQuickWindow& window, window::Desktop& desktop, std::string root)
      : random_(seed), window_(window), desktop_(desktop), root_(std::move(root)) {}

  // Does one thing, and gives its name: "press Tab", "click 120 300".
  std::string act();

 private:
  int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  QPoint anywhere() { return {below(window_.width()), below(window_.height())}; }

  std::string click();
  std::string drag();
  std::string pressKey();
  std::string turnWheel();
  std::string resize();
  std::string wish();
  std::string storeElsewhere();
  std::string wait();

  std::mt19937 random_;
  QQuickWindow& window_;
  window::Desktop& desktop_;
  std::string root_;
};
