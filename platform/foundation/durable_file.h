#pragma once

#include <string>
#include <vector>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/directory.h"
#include "platform/plist/binary.h"
#include "platform/result.h"

namespace foundation {

// What becomes of a file that has the name already.
enum class Existing { Keep, Overwrite };

// The steps of replacing a file so that nobody ever sees half of it: it is written in full under
// another name in the same folder, flushed, and then renamed over the old one: write, flush,
// replaceTarget; it is durable once flushFolder has succeeded. But for takeNameUnflushed no file is
// renamed that isn't flushed: on some file systems a power cut would leave an empty one.
//
// Each step's failure names the file and the step. After a flush that failed nothing says which
// pages are on disk, so the file is given up. One that was not put in place is removed; a folder of
// its name is an error (EISDIR). Until it is in place it is locked (flock), which distinguishes it
// from what a killed writer left behind.
class PendingFile {
 public:
  // Exclusively created, with a random name that begins with a dot; the process's mask is taken
  // off the mode. `folder` has to outlive it.
  static platform::Result<PendingFile> write(const Directory& folder, const std::string& name,
                                             plist::Bytes bytes, unsigned mode = 0600);
  PendingFile(PendingFile&& other) noexcept;
  PendingFile& operator=(PendingFile&&) = delete;
  ~PendingFile();

  int descriptor() const { return file_.number(); }

  platform::Result<platform::Done> flush();
  // Both flush before, where that wasn't done.
  platform::Result<platform::Done> replaceTarget();
  // Where the name is free; else EEXIST, and what has it stays, whoever took it meanwhile.
  platform::Result<platform::Done> takeName();
  platform::Result<platform::Done> place(Existing existing);  // one of the two
  // takeName without a flush: for a file that need not outlive a power cut, and whose reader
  // recognizes one that was cut short.
  platform::Result<platform::Done> takeNameUnflushed();

 private:
  PendingFile(const Directory& folder, std::string name);
  platform::Result<platform::Done> create(unsigned mode);
  platform::Result<platform::Done> fill(plist::Bytes bytes);
  bool lock();

  const Directory* folder_;
  std::string name_;
  std::string temporary_;  // empty when there is nothing to remove
  Descriptor file_;
  bool flushed_ = false;
};

// Makes the folder's names durable. Its failure is of the kind Unconfirmed: what was done in the
// folder is there.
platform::Result<platform::Done> flushFolder(const Directory& folder);

// Removes what writers of `name`, or of any file of the folder, left behind when they were killed;
// nothing that a writer has open.
void removeLeftovers(const Directory& folder, const std::string& name);
void removeLeftovers(const Directory& folder);
// Of these names of the folder.
void removeLeftovers(const Directory& folder, const std::vector<std::string>& names);

}  // namespace foundation
