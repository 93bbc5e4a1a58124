#pragma once

#include <QLockFile>
#include <memory>
#include <string>
#include <vector>

namespace kiv::client {

/// The file of an editor's unsaved input, in `kivstudy/unsaved` of the user's data folder. While a program
/// has it open, other programs leave it alone.
class KeptFile {
 public:
  /// A new one. Raises StoreError when the folder cannot be made.
  static std::unique_ptr<KeptFile> Make();
  /// Those that no other program has open.
  static std::vector<std::unique_ptr<KeptFile>> Found();

  const std::string& Path() const { return path_; }
  /// Raise StoreError with the system's reason.
  std::string Read() const;
  void Write(const std::string& text) const;
  void Remove() const;

 private:
  explicit KeptFile(std::string path);

  std::string path_;
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace kiv::client
