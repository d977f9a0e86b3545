#pragma once

namespace uikit {

// Points, at scale 1.
struct Size {
  double width = 0, height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  double x = 0, y = 0, width = 0, height = 0;
  bool operator==(const Rect&) const = default;
};

// Which row of which section of a table.
struct IndexPath {
  int section = 0, row = 0;
  auto operator<=>(const IndexPath&) const = default;
};

enum class Idiom { Phone, Tablet };

// The main screen below its status bar of 20 points, upright.
inline Rect applicationFrame(Idiom idiom) {
  return idiom == Idiom::Tablet ? Rect{0, 20, 768, 1004} : Rect{0, 20, 320, 460};
}

}  // namespace uikit
