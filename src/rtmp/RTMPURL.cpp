#include "rtmp/RTMPURL.h"

#include <algorithm>
#include <asio/ip/address_v6.hpp>
#include <charconv>
#include <optional>
#include <utility>

namespace vellora {
namespace {

// Those of RTMPConnection, which stands above this file.
constexpr std::uint16_t defaultPort = 1935;
constexpr std::uint16_t defaultSecurePort = 443;
constexpr std::size_t maximumLength = 8192;
constexpr std::size_t maximumHost = 253;  // RFC 1035, 2.3.4, as text

// No message repeats a part of the address: it may hold a password or a stream key, even in the wrong place.
constexpr const char* tooLong = "the address is too long";
constexpr const char* controlCharacter = "the address holds a character that cannot be printed";
constexpr const char* wrongScheme = "an address starts with rtmp:// or rtmps://";
constexpr const char* noHost = "the address names no host";
constexpr const char* badHost = "the name of the host in the address holds a character no host has";
constexpr const char* notAsciiHost =
    "the name of the host in the address has to be written with ASCII letters (xn--...)";
constexpr const char* badAddress = "the address in brackets is no IPv6 address";
constexpr const char* noBrackets = "an IPv6 address has to stand in brackets, as in rtmp://[::1]/app";
constexpr const char* badPort = "the port in the address is not a number from 1 to 65535";
constexpr const char* noApplication = "the address names no application, as in rtmp://host/app/name";
constexpr const char* noStream = "the address names no stream, as in rtmp://host/app/name";

bool isSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isControl(char c) {
  return (c >= '\0' && c < ' ') || c == '\x7F';
}

bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

bool isScheme(std::string_view text, std::string_view scheme) {
  return std::equal(text.begin(), text.end(), scheme.begin(), scheme.end(),
                    [](char a, char b) { return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b; });
}

std::optional<int> hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return std::nullopt;
}

/// A "%" that two hexadecimal digits do not follow stands for itself.
std::string percentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : std::nullopt;
    const auto low = high ? hexDigit(text[i + 2]) : std::nullopt;
    if (low) i += 2;
    result += low ? static_cast<char>(*high * 16 + *low) : text[i];
  }
  return result;
}

/// What is wrong with the name of a host; null when nothing is.
const char* fault(std::string_view host) {
  if (host.empty()) return noHost;
  if (host.size() > maximumHost) return tooLong;
  if (host.front() == '.' || host.find("..") != std::string_view::npos) return badHost;
  for (const char c : host) {
    if (static_cast<unsigned char>(c) >= 0x80) return notAsciiHost;
    if (!isLetterOrDigit(c) && c != '-' && c != '.' && c != '_') return badHost;
  }
  return nullptr;
}

/// The host within brackets; a zone follows "%25" (RFC 6874) or a plain "%".
std::optional<std::string> bracketedHost(std::string_view text) {
  std::string host(text);
  if (const std::size_t zone = host.find("%25"); zone != std::string::npos) host.erase(zone + 1, 2);
  asio::error_code error;
  asio::ip::make_address_v6(host, error);
  return error ? std::nullopt : std::optional(host);
}

std::optional<std::uint16_t> portNumber(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size() || port == 0) return std::nullopt;
  return port;
}

std::string_view withoutSlashes(std::string_view text) {
  while (text.starts_with('/')) text.remove_prefix(1);
  while (text.ends_with('/')) text.remove_suffix(1);
  return text;
}

Result<void, std::string> parseAuthority(std::string_view authority, RTMPURL& url) {
  if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
    const std::string_view login = authority.substr(0, at);
    const std::size_t colon = login.find(':');
    url.user = percentDecoded(login.substr(0, colon));
    if (colon != std::string_view::npos) url.password = percentDecoded(login.substr(colon + 1));
    if (std::any_of(url.user.begin(), url.user.end(), isControl) ||
        std::any_of(url.password.begin(), url.password.end(), isControl))
      return failure(std::string(controlCharacter));
    authority.remove_prefix(at + 1);
  }

  std::string_view port;
  if (authority.starts_with('[')) {
    const std::size_t end = authority.find(']');
    const auto host = bracketedHost(authority.substr(1, end == std::string_view::npos ? end : end - 1));
    if (end == std::string_view::npos || !host) return failure(std::string(badAddress));
    url.host = *host;
    port = authority.substr(end + 1);
    if (!port.empty() && port.front() != ':') return failure(std::string(badHost));
  } else {
    const std::size_t colon = authority.find(':');
    if (colon != std::string_view::npos && authority.find(':', colon + 1) != std::string_view::npos)
      return failure(std::string(noBrackets));
    url.host = authority.substr(0, colon);
    if (const char* const wrong = fault(url.host)) return failure(std::string(wrong));
    if (colon != std::string_view::npos) port = authority.substr(colon);
  }
  url.port = url.isSecure ? defaultSecurePort : defaultPort;
  if (port.size() <= 1) return {};
  const auto number = portNumber(port.substr(1));
  if (!number) return failure(std::string(badPort));
  url.port = *number;
  return {};
}

/// The address without user and password, from its parts.
std::string textOf(const RTMPURL& url) {
  std::string text = url.isSecure ? "rtmps://" : "rtmp://";
  text += url.host.find(':') == std::string::npos ? url.host : "[" + url.host + "]";
  if (url.port != (url.isSecure ? defaultSecurePort : defaultPort)) text += ":" + std::to_string(url.port);
  text += "/" + url.app();
  return text;
}

}  // namespace

std::string RTMPURL::app() const {
  return query.empty() ? path : path + "?" + query;
}

Result<RTMPURL, std::string> RTMPURL::parse(std::string_view text) {
  text = trimmed(text);
  if (text.size() > maximumLength) return failure(std::string(tooLong));
  if (std::any_of(text.begin(), text.end(), isControl)) return failure(std::string(controlCharacter));
  const std::size_t schemeEnd = text.find("://");
  if (schemeEnd == std::string_view::npos) return failure(std::string(wrongScheme));
  RTMPURL url;
  url.isSecure = isScheme(text.substr(0, schemeEnd), "rtmps");
  if (!url.isSecure && !isScheme(text.substr(0, schemeEnd), "rtmp")) return failure(std::string(wrongScheme));
  text.remove_prefix(schemeEnd + 3);

  const std::size_t authorityEnd = std::min(text.find_first_of("/?"), text.size());
  if (auto parsed = parseAuthority(text.substr(0, authorityEnd), url); !parsed)
    return failure(std::move(parsed.error()));
  text.remove_prefix(authorityEnd);
  const std::size_t queryMark = text.find('?');
  url.path = withoutSlashes(text.substr(0, queryMark));
  if (queryMark != std::string_view::npos) url.query = text.substr(queryMark + 1);
  url.text = textOf(url);
  return url;
}

Result<RTMPPublishAddress, std::string> RTMPPublishAddress::parse(std::string_view text) {
  const std::string_view path = trimmed(text);
  auto server = RTMPURL::parse(path);
  if (!server) return failure(std::move(server.error()));
  RTMPPublishAddress address{std::move(*server), {}};
  RTMPURL& url = address.server;
  if (url.path.empty()) return failure(std::string(noApplication));
  // "rtmp://host/app/" is an address whose key was forgotten.
  const std::size_t pathEnd = std::min(path.find('?'), path.size());
  const std::size_t slash = url.path.rfind('/');
  if (slash == std::string::npos || path[pathEnd - 1] == '/') return failure(std::string(noStream));
  address.streamName = url.path.substr(slash + 1);
  if (!url.query.empty()) address.streamName += "?" + std::exchange(url.query, {});
  url.path = withoutSlashes(std::string_view(url.path).substr(0, slash));
  url.text = textOf(url);
  return address;
}

}  // namespace vellora
