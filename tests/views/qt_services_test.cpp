#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include "qt/folder_chooser.h"
#include "qt/message_box.h"

namespace kiv {
namespace {

TEST(FolderChooser, StartsAtTheNearestFolder) {
  const QTemporaryDir folder;
  EXPECT_EQ(qt::NearestFolder(folder.path()), folder.path());
  EXPECT_EQ(qt::NearestFolder(folder.filePath("gone/deeper")), folder.path());
  EXPECT_EQ(qt::NearestFolder(""), QDir::homePath());
  EXPECT_EQ(qt::NearestFolder("relative/folder"), QDir::homePath());
}

TEST(FolderChooser, StandsOverTheWindowThatAsks) {
  QWidget asking;
  QWidget active;
  active.show();
  QApplication::setActiveWindow(&active);
  QTimer::singleShot(0, [&asking] {
    EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), &asking);
    QApplication::activeModalWidget()->close();
  });
  EXPECT_EQ(qt::FolderChooser().ChooseFolder("", asking.winId()), std::nullopt);
}

TEST(MessageBox, ShowsPlainTextAndReturns) {
  qt::MessageBoxes messages([] { return std::string("Title"); });
  EXPECT_EQ(messages.ApplicationTitle(), "Title");
  QString text;
  QMessageBox::Icon icon{};
  QTimer::singleShot(0, [&text, &icon] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    text = box->textFormat() == Qt::PlainText ? box->text() : QString();
    icon = box->icon();
    box->accept();
  });
  messages.Show("<b>5 & 6</b>", host::MessageStyle::Warning, "Title");
  EXPECT_EQ(text, "<b>5 & 6</b>");
  EXPECT_EQ(icon, QMessageBox::Warning);
}

TEST(MessageBox, SurvivesTheWindowBelow) {
  qt::MessageBoxes messages([] { return std::string("Title"); });
  auto* window = new QWidget;
  window->show();
  QApplication::setActiveWindow(window);
  QTimer::singleShot(0, [window] { delete window; });
  messages.Show("text", host::MessageStyle::Critical, "Title");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace kiv
