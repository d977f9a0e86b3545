#pragma once

#include <string>

#include "platform/result.h"

// The vCard reader of Evolution Data Server as far as it is used here, declared anew and opened by
// name: its headers would bring GTK's, 365 packages on a bare Debian 12. The names say which
// function of libebook-contacts or GLib each one is; tests/services_media/evcard_check.cpp proves
// the types where the headers are installed.
namespace services::evcard {

// The number at its end is the version of the binary interface.
inline constexpr const char* kLibrary = "libebook-contacts-1.2.so.4";
inline constexpr const char* kPackage = "libebook-contacts-1.2-4";

inline constexpr const char* kTelephone = "TEL";
inline constexpr const char* kEmail = "EMAIL";
inline constexpr const char* kFormattedName = "FN";
inline constexpr const char* kName = "N";

struct Card;
struct Attribute;
struct List {
  void* data;
  List *next, *previous;
};
using Log = void (*)(const char* domain, int level, const char* message, void* data);
inline constexpr int kEveryLevel = ~3;

struct Library {
  Card* (*e_vcard_new_from_string)(const char* text);
  List* (*e_vcard_get_attributes)(Card* card);  // of Attribute
  const char* (*e_vcard_attribute_get_name)(Attribute* attribute);
  List* (*e_vcard_attribute_get_values)(Attribute* attribute);  // of char*
  void (*g_object_unref)(void* object);
  unsigned (*g_log_set_handler)(const char* domain, int levels, Log log, void* data);
};

// The reader, or why it can't be used.
platform::Result<Library> open();

}  // namespace services::evcard
