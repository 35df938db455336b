#include "cli/publish/Redaction.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr std::string_view ellipsis = "…";
constexpr std::size_t shortSecret = 6;
constexpr std::size_t longestText = 500;

bool isWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool isWordOfItsOwn(std::string_view text, std::size_t start, std::size_t length) {
  const std::size_t end = start + length;
  return (start == 0 || !isWordCharacter(text[start - 1])) && (end == text.size() || !isWordCharacter(text[end]));
}

void replaceAll(std::string& text, const std::string& secret) {
  std::size_t position = 0;
  while ((position = text.find(secret, position)) != std::string::npos) {
    if (secret.size() >= shortSecret || isWordOfItsOwn(text, position, secret.size())) {
      text.replace(position, secret.size(), ellipsis);
      position += ellipsis.size();
    } else {
      ++position;
    }
  }
}

/// Also the controls of ISO 8859-1, which some terminals obey in UTF-8 too.
std::string withoutControls(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    const bool isLatinControl = c == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    if (isLatinControl) ++i;
    plain += (c < 0x20 || c == 0x7F || isLatinControl) ? ' ' : text[i];
  }
  return plain;
}

}  // namespace

void Redaction::add(std::string_view secret) {
  const auto insert = [this](std::string_view part) {
    if (part.empty() || std::find(secrets_.begin(), secrets_.end(), part) != secrets_.end()) return;
    secrets_.emplace_back(part);
  };
  insert(secret);
  const std::size_t question = secret.find('?');
  if (question != std::string_view::npos) {
    insert(secret.substr(0, question));
    std::string_view query = secret.substr(question + 1);
    insert(query);
    while (!query.empty()) {
      const std::string_view field = query.substr(0, query.find('&'));
      query.remove_prefix(std::min(query.size(), field.size() + 1));
      insert(field.substr(std::min(field.size(), field.find('=') + 1)));
    }
  }
  std::stable_sort(secrets_.begin(), secrets_.end(),
                   [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
}

std::string Redaction::clean(std::string_view text) const {
  std::string cleaned(text);
  for (const std::string& secret : secrets_) replaceAll(cleaned, secret);
  cleaned = withoutControls(cleaned);
  if (cleaned.size() > longestText) {
    std::size_t end = longestText;
    while (end > 0 && (static_cast<unsigned char>(cleaned[end]) & 0xC0U) == 0x80) --end;
    cleaned.replace(end, std::string::npos, ellipsis);
  }
  return cleaned;
}

}  // namespace vellora
