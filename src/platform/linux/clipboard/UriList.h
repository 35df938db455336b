#pragma once

#include <optional>
#include <string>
#include <string_view>

/// File addresses as clipboards carry them: RFC 8089 addresses, one per line (RFC 2483).
namespace vellora::uriList {

/// "file:///…" with every byte that needs it percent-encoded. `path` is absolute.
std::string fileAddress(std::string_view path);

/// The first address in `list` that names a local file, as a path; comments and other addresses are skipped. A list
/// longer than a megabyte is read up to there.
std::optional<std::string> firstLocalPath(std::string_view list);

}  // namespace vellora::uriList
