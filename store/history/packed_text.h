#pragma once

#include <cstddef>
#include <string>

namespace kiv::store {

/// No study comes near to it.
inline constexpr std::size_t kLongestContent = std::size_t{64} << 20;

/// A content as the history keeps it. A long one is compressed: those of a large study repeat themselves a
/// lot. It is the base64 of its length, in four bytes with the highest first, and a zlib stream.
std::string Packed(const std::string& content);

/// The content again. Raises StoreError with the reason for what Packed cannot have made of a study, such as
/// a stream that gives more than it says, before it takes the room for it.
std::string Unpacked(const std::string& stored);

}  // namespace kiv::store
