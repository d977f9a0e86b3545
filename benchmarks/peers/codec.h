/* The other codecs as the benchmark sees them: a profile in, an archive out, and back. */
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Each decodes the archive to a dictionary of its library's own, and frees that, `times` times;
 * returns the number of keys of the last one. */
size_t libplistDecode(const uint8_t* bytes, size_t size, int times);
size_t gnustepDecode(const uint8_t* bytes, size_t size, int times);

/* Each takes the dictionary in this archive first, outside of what is measured ... */
void libplistPrepare(const uint8_t* bytes, size_t size);
void gnustepPrepare(const uint8_t* bytes, size_t size);

/* ... and then archives it `times` times; returns the size of the last archive. */
size_t libplistEncode(int times);
size_t gnustepEncode(int times);

#ifdef __cplusplus
}
#endif
