#pragma once

#include <QImage>
#include <QString>
#include <vector>

// The pages that golden images are drawn of.
struct GoldenPage {
  const char* name;
  std::vector<const char*> rows;  // tapped one after the other, from the first page on
  bool alert = false;             // the last one opens an alert: the window keeps its height
};

const std::vector<GoldenPage>& goldenPages();

// The page in a window of this width, which is as high as the page, on a device with a few
// profiles, entries of the log and settings that were changed.
QImage drawGoldenPage(const GoldenPage& page, int width);
