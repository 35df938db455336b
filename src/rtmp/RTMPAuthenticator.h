#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellora {

/// The "adobe" login of a publisher. A server that wants it rejects "connect" twice, each time with a description that
/// says what to add to the query of the next attempt:
///
/// 1. "authmod=adobe" asks for the user's name: `authmod=adobe&user=NAME`.
/// 2. "?reason=needauth&user=…&salt=S&challenge=C&opaque=O" asks for proof:
///    `&challenge=OWN&opaque=O&response=R`, where OWN is a random number of eight hexadecimal digits, and with base64
///    of MD5 as h(): R = h( h(user + salt + password) + (opaque, or challenge where there is none) + OWN ).
class RTMPAuthenticator {
 public:
  enum class Step {
    notAsked,       ///< the rejection has another reason
    retry,          ///< connect again with `query()`
    noCredentials,  ///< a login is wanted, and there is none to give
    refused,        ///< the name or the password is wrong
  };

  RTMPAuthenticator(std::string user, std::string password);

  /// What to do after a rejection with this description.
  Step next(std::string_view description);
  /// To be added to the query of the application, without a "?" or "&" in front; empty before the first rejection.
  const std::string& query() const { return query_; }

  /// R of the second step.
  static std::string response(std::string_view user, std::string_view password, std::string_view salt,
                              std::string_view opaque, std::string_view challenge, std::string_view ownChallenge);

 private:
  std::string user_;
  std::string password_;
  std::string query_;
  bool hasNamedUser_ = false;
  bool hasAnswered_ = false;
};

}  // namespace vellora
