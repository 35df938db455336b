#include "rtmp/RTMPAuthenticator.h"

#include <openssl/evp.h>

#include <array>
#include <cstdio>
#include <random>
#include <utility>

namespace vellora {
namespace {

/// base64(md5(text))
std::string digest(std::string_view text) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> md{};
  unsigned int length = 0;
  if (EVP_Digest(text.data(), text.size(), md.data(), &length, EVP_md5(), nullptr) != 1) return {};
  std::array<unsigned char, 4 * ((EVP_MAX_MD_SIZE + 2) / 3) + 1> encoded{};
  const int size = EVP_EncodeBlock(encoded.data(), md.data(), static_cast<int>(length));
  return {reinterpret_cast<const char*>(encoded.data()), static_cast<std::size_t>(size)};
}

/// The value of `key` in the URL query that begins at the last "?" of `description`.
std::optional<std::string> queryValue(std::string_view description, std::string_view key) {
  const std::size_t start = description.rfind('?');
  if (start == std::string_view::npos) return std::nullopt;
  std::string_view rest = description.substr(start + 1);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('&'), rest.size());
    const std::string_view pair = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos || pair.substr(0, equals) != key) continue;
    std::string_view value = pair.substr(equals + 1);
    while (!value.empty() && (value.back() == ' ' || value.back() == ']')) value.remove_suffix(1);
    return std::string(value);
  }
  return std::nullopt;
}

/// Salts and challenges are base64: "+", "/" and "=" would mean something else in a query.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
                         c == '_' || c == '.' || c == '~' || c == '=' || c == '/' || c == '+';
    if (isPlain) {
      result += c;
    } else {
      std::array<char, 4> code{};
      std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
      result += code.data();
    }
  }
  return result;
}

std::string randomChallenge() {
  std::array<char, 9> text{};
  std::snprintf(text.data(), text.size(), "%08x", static_cast<unsigned>(std::random_device{}()));
  return text.data();
}

}  // namespace

RTMPAuthenticator::RTMPAuthenticator(std::string user, std::string password)
    : user_(std::move(user)), password_(std::move(password)) {}

RTMPAuthenticator::Step RTMPAuthenticator::next(std::string_view description) {
  if (description.find("authmod=adobe") == std::string_view::npos) return Step::notAsked;
  if (user_.empty()) return Step::noCredentials;
  const std::optional<std::string> reason = queryValue(description, "reason");
  if (hasAnswered_ || (reason && *reason != "needauth")) return Step::refused;
  if (!reason) {
    if (std::exchange(hasNamedUser_, true)) return Step::refused;
    query_ = "authmod=adobe&user=" + escaped(user_);
    return Step::retry;
  }
  hasNamedUser_ = hasAnswered_ = true;
  const std::string salt = queryValue(description, "salt").value_or("");
  const std::string challenge = queryValue(description, "challenge").value_or("");
  const std::string opaque = queryValue(description, "opaque").value_or("");
  const std::string own = randomChallenge();
  query_ = "authmod=adobe&user=" + escaped(user_) + "&challenge=" + own + "&opaque=" + opaque +
           "&response=" + response(user_, password_, salt, opaque, challenge, own);
  return Step::retry;
}

std::string RTMPAuthenticator::response(std::string_view user, std::string_view password, std::string_view salt,
                                        std::string_view opaque, std::string_view challenge,
                                        std::string_view ownChallenge) {
  const std::string secret = digest(std::string(user).append(salt).append(password));
  return digest(std::string(secret).append(opaque.empty() ? challenge : opaque).append(ownChallenge));
}

}  // namespace vellora
