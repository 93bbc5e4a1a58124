#include "qt/folder_chooser.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>

#include "qt/text.h"

namespace kiv::qt {

std::optional<std::string> FolderChooser::ChooseFolder(const std::string& startFolder, WindowHandle owner) {
  QWidget* window = owner == kNoWindow ? nullptr : QWidget::find(owner);
  const QString folder =
      QFileDialog::getExistingDirectory(window ? window : QApplication::activeWindow(),
                                        QStringLiteral("Choose a Folder"), NearestFolder(ToQt(startFolder)));
  if (folder.isEmpty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(folder));
}

QString NearestFolder(const QString& path) {
  QFileInfo folder(QDir::fromNativeSeparators(path.trimmed()));
  // Where the program was started means nothing to a user.
  if (!folder.isAbsolute()) return QDir::homePath();
  while (!folder.isDir()) {
    const QString above = folder.path();
    if (above == folder.filePath()) return QDir::homePath();
    folder.setFile(above);
  }
  return folder.filePath();
}

}  // namespace kiv::qt
