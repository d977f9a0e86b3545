#include "platform/foundation/url.h"

#include <gtest/gtest.h>

namespace {

using foundation::pathOfFileUrl;
using foundation::urlWithString;

std::string escaped(std::string_view path) {
  std::string url;
  foundation::appendEscapedPath(url, path);
  return url;
}

TEST(UrlWithString, KeepsTheText) {
  for (const char* text : {"/System/Library/Audio/UISounds", "file:///a/b%20c.caf", "Disabled", "",
                           "a?b#c", "http://[::1]:80/x", "//[::1]/x", "a:b;c=d@e,f!$&'()*+~_-."})
    EXPECT_EQ(urlWithString(text), text) << text;
}

TEST(UrlWithString, IsStrict) {
  for (const char* text :
       {"/a b", "/\xC3\xA9", "%zz", "%",     "%2",   "a\"",  "<",  ">",    "\\",         "^", "`",
        "{",    "|",         "}",   "a#b#c", "a[b]", "/[x]", "\n", "\x7F", "http://h/[", " "})
    EXPECT_EQ(urlWithString(text), std::nullopt) << text;
}

TEST(UrlWithString, AZeroByteIsNone) {
  EXPECT_FALSE(urlWithString(std::string_view("a\0b", 3)));
}

TEST(EscapedPath, KeepsWhatStandsInAPath) {
  const char* kept = "azAZ09!$&'()*+,-./:=@_~";
  EXPECT_EQ(escaped(kept), kept);
}

TEST(EscapedPath, EscapesEverythingElseInCapitals) {
  EXPECT_EQ(escaped(" \"#%;<>?"), "%20%22%23%25%3B%3C%3E%3F");
  EXPECT_EQ(escaped("[\\]^{|}`"), "%5B%5C%5D%5E%7B%7C%7D%60");
  EXPECT_EQ(escaped("\x01\n\x7F"), "%01%0A%7F");
}

TEST(EscapedPath, WritesOtherTextAsUtf8WithoutNormalising) {
  EXPECT_EQ(escaped("\u00E9"), "%C3%A9");
  EXPECT_EQ(escaped("e\u0301"), "e%CC%81");
  EXPECT_EQ(escaped("\xFF"), "%FF");
}

TEST(PathOfFileUrl, DecodesAFileUrl) {
  EXPECT_EQ(pathOfFileUrl("file:///a/b%20c%C3%A9.caf"), "/a/b c\u00E9.caf");
  EXPECT_EQ(pathOfFileUrl("file://localhost/a"), "/a");
  EXPECT_EQ(pathOfFileUrl("file:/a"), "/a");
  EXPECT_EQ(pathOfFileUrl("/a/b"), "/a/b");
  EXPECT_EQ(pathOfFileUrl("file:///a%3Fb?c#d"), "/a?b");
}

TEST(PathOfFileUrl, RefusesWhatIsNotALocalFile) {
  for (const char* text : {"Disabled", "", "http://h/a", "file://host/a", "//host/a", "file:a",
                           "file:///a b", "file:///a%00b", "file:///%zz", "file:"})
    EXPECT_EQ(pathOfFileUrl(text), std::nullopt) << text;
}

TEST(PathOfFileUrl, ReversesEveryEscapedPath) {
  std::string path = "/";
  for (int byte = 1; byte < 256; ++byte) path += static_cast<char>(byte);
  EXPECT_EQ(pathOfFileUrl("file://" + escaped(path)), path);
}

}  // namespace
