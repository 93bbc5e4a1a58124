#pragma once

#include <string>
#include <string_view>

/// The one place that looks at text by character. A character is a UTF-16 code unit, so that lengths and
/// positions are the ones that users of the classic platform count; texts themselves are UTF-8.
namespace kiv {

/// Bytes that are no valid UTF-8 become U+FFFD, one for each byte.
std::u16string ToUtf16(std::string_view text);

/// A lone surrogate becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

/// Number of UTF-16 code units.
std::size_t CharacterCount(std::string_view text);

}  // namespace kiv
