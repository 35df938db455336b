#include "recording/KeyboardRecordingCapture.h"

#include <algorithm>
#include <utility>

namespace vellora {
namespace {

struct NamedKey {
  std::uint16_t keyCode;
  const char16_t* label;
};

/// Keys without a character of their own.
constexpr NamedKey namedKeys[] = {
    {36, u"↩"},    {48, u"⇥"},          {49, u"Space"}, {51, u"⌫"},        {53, u"Esc"}, {71, u"Clear"}, {76, u"⌤"},
    {96, u"F5"},   {97, u"F6"},         {98, u"F7"},    {99, u"F3"},       {100, u"F8"}, {101, u"F9"},   {103, u"F11"},
    {109, u"F10"}, {111, u"F12"},       {115, u"Home"}, {116, u"Page Up"}, {117, u"⌦"},  {118, u"F4"},   {119, u"End"},
    {120, u"F2"},  {121, u"Page Down"}, {122, u"F1"},   {123, u"←"},       {124, u"→"},  {125, u"↓"},    {126, u"↑"},
};

constexpr std::pair<std::uint32_t, char16_t> modifiers[] = {
    {eventFlag::control, u'⌃'}, {eventFlag::option, u'⌥'}, {eventFlag::shift, u'⇧'}, {eventFlag::command, u'⌘'}};

}  // namespace

bool KeyboardRecordingCapture::start(KeyboardRecorder& recorder) {
  stop();
  listening_ = tap_.listen({.onKey = [this](const KeyEvent& event) { receive(event); }});
  if (!listening_) return false;
  recorder_ = &recorder;
  isSecure_ = tap_.isSecureInputEnabled();
  secureInputTimer_ = runLoop_.every(secureInputInterval, [this] { watchSecureInput(); });
  return true;
}

void KeyboardRecordingCapture::stop() {
  listening_.reset();
  secureInputTimer_.reset();
  held_.clear();
  recorder_ = nullptr;
}

std::optional<QString> KeyboardRecordingCapture::keyLabel(const KeyEvent& event) {
  const auto named = std::ranges::find(namedKeys, event.keyCode, &NamedKey::keyCode);
  if (named != std::end(namedKeys)) return QString::fromUtf16(named->label);
  const QList<uint> characters = event.charactersIgnoringModifiers.toUcs4();
  if (characters.size() != 1 || QChar::category(characters.front()) == QChar::Other_Control) return std::nullopt;
  return event.charactersIgnoringModifiers.toUpper();
}

QStringList KeyboardRecordingCapture::modifierLabels(std::uint32_t flags) {
  QStringList labels;
  for (const auto& [flag, label] : modifiers) {
    if ((flags & flag) != 0) labels.push_back(QString(QChar(label)));
  }
  return labels;
}

void KeyboardRecordingCapture::receive(const KeyEvent& event) {
  if (isSecure_ || tap_.isSecureInputEnabled()) return watchSecureInput();
  QStringList labels = modifierLabels(event.flags);
  switch (event.kind) {
    case KeyEvent::Kind::keyDown: {
      const auto label = keyLabel(event);
      if (!label) return;
      held_.insert_or_assign(event.keyCode, *label);
      QStringList keys;
      for (const auto& [code, each] : held_) keys.push_back(each);
      keys.sort();
      return record(labels + keys, event.hostTime, 0);
    }
    case KeyEvent::Kind::keyUp:
      held_.erase(event.keyCode);
      if (held_.empty()) record({}, event.hostTime, linger);
      return;
    case KeyEvent::Kind::flagsChanged:
      if (labels.isEmpty()) return record({}, event.hostTime, linger);
      if (held_.empty()) record(labels, event.hostTime, 0);
      return;
  }
}

void KeyboardRecordingCapture::watchSecureInput() {
  isSecure_ = tap_.isSecureInputEnabled();
  if (!isSecure_) return;
  held_.clear();
  record({}, runLoop_.hostTime(), 0);
}

void KeyboardRecordingCapture::record(const QStringList& keys, double hostTime, double lingering) {
  if (recorder_ != nullptr) recorder_->recordKeyboard(keys, hostTime, lingering);
}

}  // namespace vellora
