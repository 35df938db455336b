#include "platform/linux/clipboard/UriList.h"

#include <unistd.h>

#include <array>
#include <cctype>
#include <climits>

namespace vellora::uriList {
namespace {

constexpr std::size_t maximumListBytes = std::size_t{1} << 20;
constexpr std::string_view scheme = "file:";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool staysPlain(char c) {
  const bool alphanumeric = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  return alphanumeric || std::string_view("-._~/").find(c) != std::string_view::npos;
}

int hexValue(char c) {
  const auto upper = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  const auto place = hexDigits.find(upper);
  return place == std::string_view::npos ? -1 : static_cast<int>(place);
}

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      result += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const int high = hexValue(text[i + 1]);
    const int low = hexValue(text[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    result += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return result;
}

std::string hostName() {
  std::array<char, HOST_NAME_MAX + 1> name{};
  if (::gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

std::optional<std::string> localPath(std::string_view address) {
  if (!address.starts_with(scheme)) return std::nullopt;
  std::string_view rest = address.substr(scheme.size());
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    const auto slash = rest.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const std::string_view host = rest.substr(0, slash);
    if (!host.empty() && host != "localhost" && host != hostName()) return std::nullopt;
    rest.remove_prefix(slash);
  }
  auto path = percentDecoded(rest);
  const bool usable = path && path->starts_with('/') && path->find('\0') == std::string::npos;
  return usable ? path : std::nullopt;
}

}  // namespace

std::string fileAddress(std::string_view path) {
  std::string address = "file://";
  for (const char c : path) {
    if (staysPlain(c)) {
      address += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      address += {'%', hexDigits[byte >> 4], hexDigits[byte & 15]};
    }
  }
  return address;
}

std::optional<std::string> firstLocalPath(std::string_view list) {
  list = list.substr(0, maximumListBytes);
  while (!list.empty()) {
    const auto end = list.find_first_of("\r\n");
    if (auto path = localPath(list.substr(0, end))) return path;
    if (end == std::string_view::npos) break;
    list.remove_prefix(end + 1);
  }
  return std::nullopt;
}

}  // namespace vellora::uriList
