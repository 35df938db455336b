#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellora {

/// Keeps secrets out of what is printed: servers repeat the stream name, or what they were told at login, in their
/// messages.
class Redaction {
 public:
  /// The query of a stream name ("key?token=1") and the values in it count as secrets of their own.
  void add(std::string_view secret);
  /// `text` with "…" in place of every secret, safe for a terminal: one line, no control characters, of bounded length.
  /// A short secret is only looked for as a word of its own, or a stream called "e" would leave nothing to read.
  std::string clean(std::string_view text) const;

 private:
  std::vector<std::string> secrets_;  ///< the longest first
};

}  // namespace vellora
