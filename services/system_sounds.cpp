#include "services/system_sounds.h"

#include <fcntl.h>

#include "platform/foundation/file_reading.h"
#include "platform/foundation/url.h"
#include "services/services.h"

namespace services {

DeviceSounds::DeviceSounds(const foundation::DeviceRoot& root, foundation::FallbackFolder fallback,
                           Problem problem)
    : root_(root),
      fallback_(std::move(fallback)),
      problem_(problem ? std::move(problem) : [](const std::string&) {}) {}

DeviceSounds::~DeviceSounds() {
  if (played_) (*soundPlayer())->stop();
}

void DeviceSounds::play(const std::optional<std::string>& url) {
  if (!url) return;
  const auto path = foundation::pathOfFileUrl(*url);
  if (!path) return problem_("no URL of a file: " + *url);
  auto file = foundation::openWithFallback(root_, fallback_, *path, O_RDONLY);
  if (!file) return problem_(file.error().message());
  const auto status = foundation::statRegular(*file, *path);
  if (!status) return problem_(status.error().message());

  const auto& player = soundPlayer();
  if (!player) return problem_(player.error());
  played_ = true;
  (*player)->play(std::move(*file), [problem = problem_, path = *path](const std::string& reason) {
    problem(path + ": " + reason);
  });
}

}  // namespace services
