#include "client/ini_file.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <system_error>

#include "base/ascii.h"
#include "base/utf16.h"
#include "store/store_error.h"
#include "store/whole_file.h"

namespace kiv::client {

namespace {

struct Escape {
  char letter;
  char16_t character;
};
constexpr Escape kEscapes[] = {{'a', '\a'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'},
                               {'t', '\t'}, {'v', '\v'}, {'"', '"'},  {'\\', '\\'}};

bool IsHexDigit(char16_t c) {
  return IsAsciiDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

std::string Hex(const char* format, unsigned number) {
  char text[16];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

/// The name of a group or a key: what is no letter or digit stands there as its number.
std::string EscapedName(std::string_view name) {
  std::string escaped;
  for (const char16_t c : ToUtf16(name)) {
    const bool plain = IsAsciiLetter(c) || IsAsciiDigit(c) || c == '_' || c == '-' || c == '.';
    escaped += plain ? std::string(1, static_cast<char>(c)) : Hex(c <= 0xFF ? "%%%02X" : "%%U%04X", c);
  }
  return escaped;
}

std::string EscapedValue(const std::string& value) {
  std::string escaped = value.starts_with('@') ? "@" : "";  // one alone begins what is no text
  std::u16string plain;
  const auto flush = [&] {
    escaped += ToUtf8(plain);
    plain.clear();
  };
  bool afterNumber = false;  // whose end a further digit would hide
  for (const char16_t c : ToUtf16(value)) {
    const auto* const known = std::ranges::find(kEscapes, c, &Escape::character);
    const bool asNumber = c < ' ' || (afterNumber && IsHexDigit(c));
    afterNumber = false;
    if (known != std::end(kEscapes)) {
      flush();
      escaped += {'\\', known->letter};
    } else if (asNumber) {
      flush();
      escaped += Hex("\\x%x", c);
      afterNumber = true;
    } else {
      plain += c;
    }
  }
  flush();
  const bool quoted =
      escaped.find_first_of(";,=") != std::string::npos || escaped.starts_with(' ') || escaped.ends_with(' ');
  return quoted ? '"' + escaped + '"' : escaped;
}

std::string_view TrimmedLine(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the characters of one escape off the text, whose backslash is gone.
char16_t TakeEscape(std::string_view& text) {
  const char letter = text.front();
  const auto* const known = std::ranges::find(kEscapes, letter, &Escape::letter);
  unsigned number = known != std::end(kEscapes) ? known->character : static_cast<unsigned char>(letter);
  std::size_t length = 1;
  if (letter == 'x' || (letter >= '0' && letter <= '7')) {
    const std::size_t start = letter == 'x' ? 1 : 0;
    const auto [end, problem] =
        std::from_chars(text.data() + start, text.data() + text.size(), number, letter == 'x' ? 16 : 8);
    if (problem == std::errc()) length = static_cast<std::size_t>(end - text.data());
  }
  text.remove_prefix(length);
  return static_cast<char16_t>(number);
}

/// The text that a value stands for; nothing for what is no text, such as the size of a window.
std::optional<std::string> UnescapedValue(std::string_view raw) {
  std::u16string value;
  while (!raw.empty()) {
    const std::size_t next = std::min(raw.find_first_of("\\\""), raw.size());
    value += ToUtf16(raw.substr(0, next));
    raw.remove_prefix(next);
    if (raw.empty()) break;
    const bool isEscape = raw.front() == '\\';
    raw.remove_prefix(1);
    if (isEscape && !raw.empty()) value += TakeEscape(raw);
  }
  if (value.starts_with(u'@')) {
    if (!value.starts_with(u"@@")) return std::nullopt;
    value.erase(0, 1);
  }
  return ToUtf8(value);
}

/// Where a value stands in the text of a file, or where it belongs.
struct Place {
  enum class Found { Value, Group, Nothing } found = Found::Nothing;
  std::size_t begin = 0;  ///< of the line, or of where it belongs
  std::size_t end = 0;
  std::string_view value;
};

Place PlaceOf(std::string_view text, std::string_view group, std::string_view key) {
  const std::string header = '[' + EscapedName(group) + ']';
  const std::string name = EscapedName(key);
  Place place{Place::Found::Nothing, text.size(), text.size(), {}};
  bool inGroup = false;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
    const std::string_view line =
        TrimmedLine(text.substr(begin, end - begin - (text[end - 1] == '\n' ? 1 : 0)));
    const std::size_t equals = line.find('=');
    if (line.starts_with('[')) {
      inGroup = line == header;
    } else if (inGroup && equals != std::string_view::npos && TrimmedLine(line.substr(0, equals)) == name) {
      place = {Place::Found::Value, begin, end, TrimmedLine(line.substr(equals + 1))};
    }
    if (inGroup && !line.empty() && place.found != Place::Found::Value) {
      place = {Place::Found::Group, end, end, {}};
    }
    begin = end;
  }
  return place;
}

}  // namespace

std::optional<std::string> IniFile::Value(std::string_view group, std::string_view key) const {
  Refresh();
  const Place place = PlaceOf(text_, group, key);
  if (place.found != Place::Found::Value) return std::nullopt;
  return UnescapedValue(place.value);
}

void IniFile::Set(std::string_view group, std::string_view key, const std::string& value) {
  Refresh();
  if (!text_.empty() && !text_.ends_with('\n')) text_ += '\n';
  const Place place = PlaceOf(text_, group, key);
  std::string line = EscapedName(key) + '=' + EscapedValue(value) + '\n';
  if (place.found == Place::Found::Nothing) {
    line = (text_.empty() ? "[" : "\n[") + EscapedName(group) + "]\n" + line;
  }
  text_.replace(place.begin, place.end - place.begin, line);
  Write();
  changedAt_ = ChangedAt();
}

void IniFile::Write() const {
  // What could not be read must not be lost.
  if (!unreadable_.empty()) throw store::StoreError(unreadable_);
  std::error_code error;
  std::filesystem::create_directories(path_.parent_path(), error);
  if (error) throw store::StoreError(error.message());
  store::WriteWholeFile(path_, text_, store::Durability::Program);
}

std::filesystem::file_time_type IniFile::ChangedAt() const {
  std::error_code error;
  return std::filesystem::last_write_time(path_, error);
}

void IniFile::Refresh() const {
  const auto changedAt = ChangedAt();
  if (changedAt == changedAt_) return;
  changedAt_ = changedAt;
  text_.clear();
  unreadable_.clear();
  try {
    std::error_code error;
    if (std::filesystem::exists(path_, error)) text_ = store::ReadWholeFile(path_);
  } catch (const store::StoreError& failure) {
    unreadable_ = failure.what();
  }
}

}  // namespace kiv::client
