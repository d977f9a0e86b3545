#include "host/plain_words.h"

#include <cerrno>

#include "host/text.h"
#include "host/triggers.h"
#include "prefs/profiles/ProfilesListController.h"
#include "prefs/profiles/profile_file.h"
#include "prefs/profiles/saved_profiles.h"

namespace host {
namespace {

using platform::Error;
using platform::ErrorKind;

constexpr char kDamaged[] = "The profile can't be read: its file is damaged.";

int codeOf(const Error& error) {
  const int behind = error.cause ? codeOf(*error.cause) : 0;
  return behind != 0 ? behind : error.code;
}

std::string whyOf(int code) {
  switch (code) {
    case ENOSPC:
      return "the disk is full";
    case EDQUOT:
      return "your share of the disk is used up";
    case EACCES:
    case EPERM:
      return "no permission";
    case EROFS:
      return "the disk can only be read";
    case EIO:
      return "the disk reports an error";
    case EMFILE:
    case ENFILE:
      return "too many files are open";
    case EEXIST:
      return "it exists already";
    case EISDIR:
      return "a folder is in its place";
    case ENOTDIR:
      return "a file is in the place of its folder";
    case ENOENT:
      return "the file is not there";
    case EFBIG:
      return "the file is too large";
    case ELOOP:
      return "a link is in its place";
    case EAGAIN:
    case ETIMEDOUT:
      return "another program holds the file";
    case ENOMEM:
      return "out of memory";
  }
  return "the system refuses it";
}

// Of a request the error is about a file that the user has chosen. What a page didn't do, and what
// is kept for the user, is said by the error that has a cause.
std::string whatOf(Source source, const Error& error) {
  if (error.kind == ErrorKind::Unconfirmed)
    return source == Source::Profiles ? "The profile is stored, but a power cut may undo that"
                                      : "The change is stored, but a power cut may undo it";
  if (source == Source::Profiles &&
      (error.what == prefs::kNotSaved || error.what == prefs::kNotDeleted))
    return "The profile was " + error.what;
  if (source == Source::Backups && error.cause) return capital(error.what);
  switch (source) {
    case Source::Settings:
      return "The settings can't be read or changed";
    case Source::Profiles:
      return "The profiles can't be read or changed";
    case Source::Log:
      return "The battery log can't be read";
    case Source::Contacts:
      return "The contacts can't be read";
    case Source::Sounds:
      return "The sound can't be played";
    case Source::Backups:
      return "What is kept of earlier settings can't be read or changed";
    case Source::Request:
      return "The file can't be read or written";
    default:
      return "It was not done";
  }
}

}  // namespace

std::string plainWords(Source source, const Error& error) {
  if (source == Source::Profiles && error.what.starts_with(prefs::kNoProfileIn))
    return capital(error.what) + ".";
  const int code = codeOf(error);
  if (source == Source::Profiles && code == 0 && isProfilePath(error.path))
    return error.what == prefs::kDeadLink
               ? "The profile can't be read: its file is " + error.what + "."
               : kDamaged;
  return code == 0 ? std::string() : whatOf(source, error) + ": " + whyOf(code) + ".";
}

std::string fileOf(const Error& error) {
  if (!error.path.empty() || !error.cause) return error.path;
  return fileOf(*error.cause);
}

}  // namespace host
