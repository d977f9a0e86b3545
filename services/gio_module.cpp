#include <gio/gio.h>

#include <memory>

#include "platform/services.h"
#include "services/module.h"

namespace services {

namespace {

struct Unref {
  void operator()(GAppInfo* application) const { g_object_unref(application); }
};
using Application = std::unique_ptr<GAppInfo, Unref>;

Application applicationFor(const std::string& url) {
  const std::unique_ptr<char, decltype(&g_free)> scheme(g_uri_parse_scheme(url.c_str()), g_free);
  return Application(scheme ? g_app_info_get_default_for_uri_scheme(scheme.get()) : nullptr);
}

class GioUrls : public platform::Urls {
 public:
  bool canOpen(std::string_view url) override {
    return applicationFor(std::string(url)) != nullptr;
  }

  bool open(std::string_view url) override {
    std::string text(url);
    const Application application = applicationFor(text);
    if (!application) return false;
    GList list{text.data(), nullptr, nullptr};
    return g_app_info_launch_uris(application.get(), &list, nullptr, nullptr);
  }
};

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  (void)reason;
  return static_cast<platform::Urls*>(new services::GioUrls);
}
