// Decoding and encoding the archive of a profile: this project, and each library that is installed.
#include <string>
#include <variant>
#include <vector>

#include "benchmarks/codec/profile.h"
#include "benchmarks/peers/codec.h"
#include "benchmarks/race.h"
#include "platform/archive/keyed_archive.h"

namespace {

const plist::Value profile = typicalProfile();
const std::vector<std::uint8_t> bytes = *archive::archive(profile, archive::Mutability::Mutable);
const std::size_t keys = profile.dictionary()->size();

// What every decoder that gives values of its own has to make.
using Owned = std::variant<long long, double, std::string>;

std::vector<std::pair<std::string, Owned>> ownedPairs() {
  std::vector<std::pair<std::string, Owned>> pairs;
  for (const auto& [key, value] : *profile.dictionary()) {
    if (const std::string* text = value.text())
      pairs.emplace_back(key, *text);
    else
      pairs.emplace_back(key, 1LL);
  }
  return pairs;
}

void decode(bench::Race& race) {
  race.add("ours", [] {
    const auto root = archive::unarchive(plist::Bytes(bytes));
    bench::keep(&root);
  });
  for (const PeerCodec& peer : kPeerCodecs) {
    bench::expect(peer.decode(bytes.data(), bytes.size()) == keys, peer.name);
    race.add(peer.name, [&peer] { peer.decode(bytes.data(), bytes.size()); });
  }
  static const auto pairs = ownedPairs();
  bench::expect(pairs.size() == keys, "copied pairs");
  race.add("copy of the pairs", [] {
    const auto copy = pairs;
    bench::keep(&copy);
  });
  bench::expect(archive::unarchive(plist::Bytes(bytes))->dictionary()->size() == keys, "decoding");
  race.run();
}

void encode(bench::Race& race) {
  race.add("ours", [] {
    const auto archived = archive::archive(profile, archive::Mutability::Mutable);
    bench::keep(&archived);
  });
  for (const PeerCodec& peer : kPeerCodecs) {
    peer.prepare(bytes.data(), bytes.size());
    bench::expect(peer.encode() > 1000, peer.name);
    race.add(peer.name, [&peer] { peer.encode(); });
  }
  static std::vector<std::uint8_t> target(bytes.size());
  race.add("copy of the bytes", [] {
    std::copy(bytes.begin(), bytes.end(), target.begin());
    bench::keep(target.data());
  });
  race.run();
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments, {{"decode", decode}, {"encode", encode}});
}
