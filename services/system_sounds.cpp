#include "services/system_sounds.h"

#include <fcntl.h>

#include "platform/foundation/file_reading.h"
#include "platform/foundation/url.h"
#include "services/services.h"

namespace services {

DeviceSounds::DeviceSounds(const foundation::DeviceRoot& root, foundation::FallbackFolder fallback,
                           platform::Report report)
    : root_(root),
      fallback_(std::move(fallback)),
      report_(report ? std::move(report) : [](const platform::Error&) {}) {}

DeviceSounds::~DeviceSounds() {
  if (played_) (*find<SoundPlayer>())->stop();
}

void DeviceSounds::play(const std::optional<std::string>& url) {
  if (!url) return;
  const auto path = foundation::pathOfFileUrl(*url);
  if (!path) return report_({.what = "not the URL of a file: " + *url});
  auto file = foundation::openWithFallback(root_, fallback_, *path, O_RDONLY);
  if (!file) return report_(file.error());
  const auto status = foundation::statRegular(*file, *path);
  if (!status) return report_(status.error());

  const auto& player = find<SoundPlayer>();
  if (!player) return report_(player.error());
  played_ = true;
  (*player)->play(std::move(*file), [report = report_, path = *path](const std::string& reason) {
    report({.path = path, .what = reason});
  });
}

}  // namespace services
