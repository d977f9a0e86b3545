#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/descriptor.h"
#include "platform/plist/binary.h"
#include "platform/result.h"

namespace foundation {

// Whether a removal takes a folder with all that it holds.
enum class Folders { Refuse, Remove };

// A folder that stays open, for listing it and reading many of its files at little more than the
// cost of the bare system calls. It is the same folder even if its path leads elsewhere by now.
class Directory {
 public:
  Directory(Descriptor descriptor, std::string path);

  const std::string& path() const { return path_; }  // the platform's, without trailing slash
  int descriptor() const { return descriptor_.number(); }

  // Without "." and "..", in directory order.
  platform::Result<std::vector<std::string>> names() const;

  // A regular file of the folder, whole; the bytes hold until the next read. A symbolic link is
  // followed only while it stays inside the folder: one that leads out is an error (EXDEV), and so
  // are FIFOs, devices and folders, none of which blocks the call.
  platform::Result<plist::Bytes> read(const std::string& name) { return read(name, buffer_); }
  // Into a buffer of the caller's, so that several threads can read at once.
  platform::Result<plist::Bytes> read(const std::string& name,
                                      std::vector<std::uint8_t>& buffer) const;

  // Of an entry, in bytes; nothing where there is none.
  std::optional<std::uint64_t> size(const std::string& name) const;

  // Removes an entry of the folder: a file, a link (not what it leads to), or a folder with all
  // that it holds (EISDIR where folders are refused). 0, or the errno of the first entry that
  // couldn't be removed; EMFILE where folders are nested deeper than this process may have files
  // open.
  int remove(const std::string& name, Folders folders) const;

  // About a file of the folder.
  platform::Error error(const std::string& name, int code, std::string what = {}) const;

 private:
  Descriptor descriptor_;
  std::string path_;
  std::vector<std::uint8_t> buffer_;
};

}  // namespace foundation
