#include "client/window/kept_file.h"

#include <QDir>
#include <QUuid>
#include <filesystem>

#include "client/user_folders.h"
#include "store/store_error.h"
#include "store/whole_file.h"

namespace kiv::client {

namespace {

constexpr const char* kEnding = ".json";

std::filesystem::path Folder() {
  return UserDataFolder() / "kivstudy" / "unsaved";
}

std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace

KeptFile::KeptFile(std::string path)
    : path_(std::move(path)), lock_(std::make_unique<QLockFile>(QString::fromStdString(path_ + ".lock"))) {
  lock_->setStaleLockTime(0);  // it is held until the program ends, however long that takes
}

std::unique_ptr<KeptFile> KeptFile::Make() {
  std::error_code error;
  std::filesystem::create_directories(Folder(), error);
  if (error) throw store::StoreError(Utf8(Folder()) + " cannot be made: " + error.message());
  // What is typed may concern nobody else.
  std::filesystem::permissions(Folder(), std::filesystem::perms::owner_all, error);
  const std::string name = QUuid::createUuid().toString(QUuid::Id128).toStdString() + kEnding;
  std::unique_ptr<KeptFile> made(new KeptFile(Utf8(Folder() / name)));
  made->lock_->tryLock();
  return made;
}

std::vector<std::unique_ptr<KeptFile>> KeptFile::Found() {
  std::vector<std::unique_ptr<KeptFile>> found;
  const QDir folder(QString::fromStdString(Utf8(Folder())));
  for (const QString& name : folder.entryList({QLatin1Char('*') + QLatin1String(kEnding)}, QDir::Files)) {
    std::unique_ptr<KeptFile> file(new KeptFile(folder.filePath(name).toStdString()));
    if (file->lock_->tryLock()) found.push_back(std::move(file));
  }
  return found;
}

std::string KeptFile::Read() const {
  return store::ReadWholeFile(store::PathOf(path_));
}

void KeptFile::Write(const std::string& text) const {
  store::WriteWholeFile(store::PathOf(path_), text, store::Durability::PowerFailure);
}

void KeptFile::Remove() const {
  std::error_code ignored;
  std::filesystem::remove(store::PathOf(path_), ignored);
}

}  // namespace kiv::client
