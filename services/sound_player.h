#pragma once

#include <functional>
#include <string>

#include "platform/foundation/descriptor.h"

namespace services {

class SoundPlayer {
 public:
  using Failed = std::function<void(const std::string& reason)>;

  virtual ~SoundPlayer() = default;

  // Starts to play an open sound file and returns at once; sounds may sound together, 32 of them.
  // `failed` is called at most once, when the sound can't be played, most often in a thread of the
  // player's.
  virtual void play(foundation::Descriptor file, Failed failed) = 0;

  // Silences what is playing, and no `failed` is called when this has returned. Waits no more than
  // a second for a sound server that doesn't answer.
  virtual void stop() = 0;
};

}  // namespace services
