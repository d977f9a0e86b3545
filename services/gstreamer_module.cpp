#include <gst/gst.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>

#include "services/module.h"
#include "services/sound_player.h"

namespace services {

namespace {

using foundation::Descriptor;

constexpr int kTogether = 32;
constexpr std::chrono::seconds kPatience{1};
constexpr int kAudioOnly = 1 << 1;  // playbin's "flags"; the type stands in no header

struct ToNothing {
  // Nothing else makes an element close file and sound server.
  void operator()(GstElement* element) const {
    gst_element_set_state(element, GST_STATE_NULL);
    gst_object_unref(element);
  }
  void operator()(GstBus* bus) const { gst_object_unref(bus); }
  void operator()(GstMessage* message) const { gst_message_unref(message); }
  void operator()(GError* error) const { g_error_free(error); }
};
template <class T>
using Owned = std::unique_ptr<T, ToNothing>;

constexpr const char* kPlugins =
    " (Debian's packages gstreamer1.0-plugins-base and gstreamer1.0-plugins-good)";

bool lacksPlugin(const GError& error) {
  return g_error_matches(&error, GST_CORE_ERROR, GST_CORE_ERROR_MISSING_PLUGIN) ||
         g_error_matches(&error, GST_STREAM_ERROR, GST_STREAM_ERROR_CODEC_NOT_FOUND);
}

std::string messageOf(Owned<GError> error) {
  if (!error) return "unknown failure";
  return std::string(error->message) + (lacksPlugin(*error) ? kPlugins : "");
}

// Why GStreamer can't be used; empty where it can. The first call may look through all plug-ins.
const std::string& initialise() {
  static const std::string reason = [] {
    GError* error = nullptr;
    return gst_init_check(nullptr, nullptr, &error) ? "" : messageOf(Owned<GError>(error));
  }();
  return reason;
}

std::string failureIn(GstMessage* message) {
  GError* error = nullptr;
  if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR)
    gst_message_parse_error(message, &error, nullptr);
  else if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_WARNING)
    gst_message_parse_warning(message, &error, nullptr);
  else
    return "";
  return messageOf(Owned<GError>(error));
}

class GstPlayer : public SoundPlayer {
 public:
  void play(Descriptor file, Failed failed) override {
    const std::string refusal = start(std::move(file), failed);
    if (!refusal.empty()) failed(refusal);
  }

  void stop() override {
    std::unique_lock lock(mutex_);
    ++round_;
    for (GstBus* bus : buses_)
      gst_bus_post(bus, gst_message_new_application(nullptr, gst_structure_new_empty("stop")));
    ended_.wait_for(lock, kPatience, [this] { return playing_ == 0; });
  }

 private:
  std::string start(Descriptor file, const Failed& failed) {
    const std::unique_lock lock(mutex_);
    if (playing_ == kTogether) return "too many sounds at once";
    try {
      std::thread([this, round = round_, file = std::move(file), failed] {
        const std::string reason = playToEnd(file, round);
        if (!reason.empty() && isCurrent(round)) failed(reason);
        const std::unique_lock ended(mutex_);
        --playing_;
        ended_.notify_all();
      }).detach();
    } catch (const std::system_error& error) {
      return error.what();
    }
    ++playing_;
    return "";
  }

  // Returns when the sound has ended, or why it can't be played.
  std::string playToEnd(const Descriptor& file, int round) {
    if (!initialise().empty()) return initialise();
    const Owned<GstElement> player(gst_element_factory_make("playbin", nullptr));
    if (!player) return std::string("GStreamer has no playbin") + kPlugins;
    const std::string uri = "fd://" + std::to_string(file.number());
    g_object_set(player.get(), "uri", uri.c_str(), "flags", kAudioOnly, nullptr);
    const Owned<GstBus> bus(gst_element_get_bus(player.get()));
    if (!enter(bus.get(), round)) return "";
    std::string failure = wait(player.get(), bus.get());
    const std::unique_lock lock(mutex_);
    buses_.erase(bus.get());
    return failure;
  }

  static std::string wait(GstElement* player, GstBus* bus) {
    constexpr auto kDecisive = static_cast<GstMessageType>(
        GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_WARNING | GST_MESSAGE_APPLICATION);
    const auto change = gst_element_set_state(player, GST_STATE_PLAYING);
    const bool started = change != GST_STATE_CHANGE_FAILURE;
    std::string complaint;
    for (;;) {
      const Owned<GstMessage> message(
          gst_bus_timed_pop_filtered(bus, started ? GST_CLOCK_TIME_NONE : 0, kDecisive));
      if (!message) return "it can't be played";
      const std::string failure = failureIn(message.get());
      if (!failure.empty()) complaint = failure;
      if (GST_MESSAGE_TYPE(message.get()) != GST_MESSAGE_WARNING) return complaint;
    }
  }

  bool enter(GstBus* bus, int round) {
    const std::unique_lock lock(mutex_);
    return round == round_ && buses_.insert(bus).second;
  }

  bool isCurrent(int round) {
    const std::unique_lock lock(mutex_);
    return round == round_;
  }

  std::mutex mutex_;
  std::condition_variable ended_;
  std::set<GstBus*> buses_;
  int playing_ = 0;
  int round_ = 0;
};

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  (void)reason;
  return static_cast<services::SoundPlayer*>(new services::GstPlayer);
}
