#pragma once

#include <optional>
#include <string>

#include "platform/preferences/PSListController.h"
#include "platform/preferences/environment.h"

// The five ways in which the bundle touches its preference domain. The pages ignore what the store
// says of it; the store reports each failure to the host itself.
namespace prefs {

// A property of a row that names where or how its value is stored ("key", "defaults",
// "PostNotification", …); unset where it isn't text, or there is no row.
std::optional<std::string> rowText(const preferences::PSSpecifier* row, std::string_view property);

// Stores the value of a row and posts the row's notification, redraws the row, flushes.
void pageWrite(preferences::PSListController& page, foundation::Preferences& preferences,
               const plist::Value& value, preferences::PSSpecifier* specifier);

// The value of one key as it is on disk now; empty when there is none, or no key or no domain is
// given.
std::optional<plist::Value> singleValueRead(foundation::Preferences& preferences,
                                            const std::optional<std::string>& key,
                                            const std::optional<std::string>& domain);

// How a single value is stored and announced; what is unset is left out.
struct SingleValueWrite {
  std::optional<std::string> key, domain;
  std::optional<std::string> previewNotification;  // in-process
  std::optional<std::string> postNotification;     // cross-process
};

// Stores and flushes (only the domain decides whether), posts in-process, posts cross-process.
void singleValueWriteWithNotification(preferences::Environment& environment,
                                      const SingleValueWrite& write, const plist::Value& value);

// Whether the domain can be read now, or there is none: "the settings can't be read: ..." where
// not.
platform::Result<platform::Done> readableSettings(foundation::Preferences& preferences);

// Every stored key and value of the bundle's domain; where it can't be read, as it was read last.
plist::Dictionary wholeDomainRead(foundation::Preferences& preferences);

// Sets every key of the dictionary in the bundle's domain and flushes. Nothing is ever removed. The
// error is why nothing was stored; what was stored and couldn't be flushed is not an error here.
platform::Result<platform::Done> wholeDomainWrite(foundation::Preferences& preferences,
                                                  const plist::Dictionary& values);

}  // namespace prefs
