// The settings of a user, which the window's toolkit writes and reads in the same file.

#include "client/user_settings.h"

#include <gtest/gtest.h>

#include <QSettings>

#include "client/ini_file.h"
#include "support/temp_folder.h"

namespace kiv::client {
namespace {

TEST(UserSettings, AreTheSameToTheToolkitAndKeepWhatIsNotTheirs) {
  const test::TempFolder folder;
  const QString path = QString::fromStdString(folder.File("kivstudy/kivstudy.ini"));
  const QStringList hostile = QString::fromUtf8(
                                  "plain|| blanks |a;b,c=d|\"quoted\" \\ C:\\x|line\nend\t\037f|@first|@@two|"
                                  "\u6771\u4EAC \U0001F4E1 \u00E9|[General]|a=b|%41|\a\0019")
                                  .split('|');
  const auto key = [](qsizetype i) { return "Key " + std::to_string(i) + "/\u00E4"; };
  const QByteArray geometry("\x01\x00@Rect,\"\xFF", 10);
  {
    QSettings toolkit(path, QSettings::IniFormat);
    toolkit.setValue("Window/geometry", geometry);
    toolkit.setValue("top", QStringList{"a", "b"});
    for (qsizetype i = 0; i < hostile.size(); ++i) {
      toolkit.setValue(QString::fromStdString("By toolkit/" + std::to_string(i)), hostile[i]);
    }
  }
  IniFile ours(folder.File("kivstudy/kivstudy.ini"));
  for (qsizetype i = 0; i < hostile.size(); ++i) {
    EXPECT_EQ(ours.Value("By toolkit", std::to_string(i)), hostile[i].toStdString());
    ours.Set("By toolkit", std::to_string(i), "changed");
    ours.Set("Ours here", key(i), "first");
    ours.Set("Ours here", key(i), hostile[i].toStdString());
    EXPECT_EQ(ours.Value("Ours here", key(i)), hostile[i].toStdString());
  }
  EXPECT_EQ(ours.Value("Window", "geometry"), std::nullopt) << "it is no text";
  QSettings toolkit(path, QSettings::IniFormat);
  EXPECT_EQ(toolkit.value("Window/geometry").toByteArray(), geometry);
  EXPECT_EQ(toolkit.value("top").toStringList(), QStringList({"a", "b"}));
  toolkit.beginGroup("Ours here");
  for (qsizetype i = 0; i < hostile.size(); ++i) {
    EXPECT_EQ(toolkit.value(QString::fromStdString(key(i))).toString(), hostile[i]);
  }
  toolkit.setValue("later", "by another program");
  toolkit.sync();
  EXPECT_EQ(ours.Value("Ours here", "later"), "by another program");
}

}  // namespace
}  // namespace kiv::client
