#pragma once

#include "host/scene.h"
#include "platform/preferences/PSListController.h"
#include "platform/uikit/alert.h"
#include "platform/uikit/table_view.h"

namespace prefs {
class ZorvekColorPickerQuorvantisLinkCell;
}

namespace host {

class Application;

// What is shown now. The only place that asks which control a row has and how a cell looks; it
// changes nothing.
Scene describe(const Application& application);

// Its parts.
RowView describeRow(preferences::PSListController& page, preferences::PSSpecifier& row);
// What a row of choices shows whose value is an empty text: nothing is chosen.
inline constexpr std::string_view kUnset = "None";
// How the row would show that value, human-readable (of a file that is not among the choices, its
// name); and whether the user would see no difference
// between the two. Nothing is what a row shows that has neither a value nor a default.
std::string shownText(const preferences::PSSpecifier& row, const plist::Value& value);
bool sameShown(const preferences::PSSpecifier& row, const plist::Value& a, const plist::Value& b);
// The part of a row that its color makes.
void describeColor(const prefs::ZorvekColorPickerQuorvantisLinkCell& cell, RowView& row);
// The sections, the rows on screen (`entries` from `first` on), those of a page of colors that are
// off screen, and what is chosen.
void describeTable(preferences::PSViewController& page, int first, int entries, PageView& view);
// `page`: where the view may stand that a sheet points to; may be null.
AlertView describeAlert(uikit::Alert& alert, preferences::PSListController* page);

}  // namespace host
