// Compiles only if services/evcard.h declares what these headers do.
#include "services/evcard.h"

#include <libebook-contacts/libebook-contacts.h>

#include <cstddef>
#include <string_view>
#include <type_traits>

namespace {

using namespace services::evcard;

// A type of the headers as it is declared anew.
template <class T>
struct Renamed {
  using Type = T;
};
template <>
struct Renamed<EVCard*> {
  using Type = Card*;
};
template <>
struct Renamed<EVCardAttribute*> {
  using Type = Attribute*;
};
template <>
struct Renamed<GList*> {
  using Type = List*;
};
template <>
struct Renamed<GLogLevelFlags> {
  using Type = std::underlying_type_t<GLogLevelFlags>;
};
template <class Result, class... Arguments>
struct Renamed<Result (*)(Arguments...)> {
  using Type = typename Renamed<Result>::Type (*)(typename Renamed<Arguments>::Type...);
};

#define IS_DECLARED(name) \
  static_assert(std::is_same_v<typename Renamed<decltype(&::name)>::Type, decltype(Library::name)>)
IS_DECLARED(e_vcard_new_from_string);
IS_DECLARED(e_vcard_get_attributes);
IS_DECLARED(e_vcard_attribute_get_name);
IS_DECLARED(e_vcard_attribute_get_values);
IS_DECLARED(g_log_set_handler);
// A macro of its own, around a function of the same type.
static_assert(std::is_same_v<decltype(&(::g_object_unref)), decltype(Library::g_object_unref)>);

static_assert(sizeof(GList) == sizeof(List));
static_assert(offsetof(GList, data) == offsetof(List, data));
static_assert(offsetof(GList, next) == offsetof(List, next));
static_assert(offsetof(GList, prev) == offsetof(List, previous));
static_assert(kEveryLevel == G_LOG_LEVEL_MASK);

static_assert(std::string_view(EVC_TEL) == kTelephone);
static_assert(std::string_view(EVC_EMAIL) == kEmail);
static_assert(std::string_view(EVC_FN) == kFormattedName);
static_assert(std::string_view(EVC_N) == kName);

}  // namespace
