/* Other codecs of archives, as the benchmark sees them: a profile in, an archive out, and back. */
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* NAMEDecode decodes the archive to a dictionary of its library's own, frees that, and returns how
 * many keys it had. NAMEPrepare takes the dictionary in this archive, outside of what is measured,
 * and NAMEEncode archives that and returns the size. */
size_t libplistDecode(const uint8_t* bytes, size_t size);
void libplistPrepare(const uint8_t* bytes, size_t size);
size_t libplistEncode(void);

size_t gnustepDecode(const uint8_t* bytes, size_t size);
void gnustepPrepare(const uint8_t* bytes, size_t size);
size_t gnustepEncode(void);

size_t rustDecode(const uint8_t* bytes, size_t size);
void rustPrepare(const uint8_t* bytes, size_t size);
size_t rustEncode(void);

#ifdef __cplusplus
}

#include <vector>

struct PeerCodec {
  const char* name;
  size_t (*decode)(const uint8_t* bytes, size_t size);
  void (*prepare)(const uint8_t* bytes, size_t size);
  size_t (*encode)();
};

/* Those that were found when this was built. */
inline const std::vector<PeerCodec> kPeerCodecs = {
#ifdef PEER_RUST
    {"Rust plist", rustDecode, rustPrepare, rustEncode},
#endif
#ifdef PEER_LIBPLIST
    {"libplist", libplistDecode, libplistPrepare, libplistEncode},
#endif
#ifdef PEER_GNUSTEP
    {"GNUstep", gnustepDecode, gnustepPrepare, gnustepEncode},
#endif
};
#endif
