#pragma once

#include <string>

namespace kiv::store {

/// A content as the history keeps it. A long one is compressed: those of a large study repeat themselves a
/// lot. It is the base64 of its length, in four bytes with the highest first, and a zlib stream.
std::string Packed(const std::string& content);

/// The content again; empty for what Packed cannot have made, such as a stream that gives more than it says.
std::string Unpacked(const std::string& stored);

}  // namespace kiv::store
