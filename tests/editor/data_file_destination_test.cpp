#include "editor/data_file_destination.h"

#include <gtest/gtest.h>

#include "editor/name_preview.h"
#include "support/fake_host.h"
#include "support/temp_folder.h"
#include "support/test_page.h"

namespace kiv {
namespace {

class Destination : public ::testing::Test {
 protected:
  std::string ShownForPath(const std::string& path) {
    dest_.SetPath(path);
    dest_.IsValidPath();
    return host_.TakeMessage();
  }
  std::string ShownForName(const std::string& name) {
    dest_.txtFilename.SetText(name);
    dest_.IsValidFilename();
    return host_.TakeMessage();
  }

  test::FakeHost host_;
  test::TempFolder folder_;
  test::TestPage page_;
  XKivDataFileDestination dest_{&page_, "XDest"};
};

TEST_F(Destination, FolderMustExistOnAHardDiskOrTheNetwork) {
  dest_.Init(11, ".vcs");
  EXPECT_EQ(ShownForPath("   "), "Data File Destination Path is a required field.");
  EXPECT_TRUE(dest_.txtPath.HasFocus());
  EXPECT_EQ(ShownForPath(" /dev/shm"), "Only hard disks and network drives are valid data file destination.");
  EXPECT_EQ(ShownForPath(folder_.File("none")), "Data File Destination Path does not exist.");
  EXPECT_EQ(dest_.Path(), folder_.File("none"));
  EXPECT_EQ(ShownForPath(folder_.Path() + "  "), "");
  dest_.SetPath({});
  dest_.txtFilename.SetFocus();
  dest_.txtPath.SetVisible(false);
  EXPECT_FALSE(dest_.IsValidPath());
  EXPECT_TRUE(dest_.txtFilename.HasFocus());  // a hidden box gets no focus
  EXPECT_EQ(host_.messages->shown.at(0).style, host::MessageStyle::Critical);
  EXPECT_EQ(host_.messages->shown.at(0).title, "Test Host");
}

TEST_F(Destination, NamesFollowTheirRulesInOrder) {
  const std::string tooLong =
      "A filename must have at least 1 but no more than 11 characters\r\n"
      "and cannot include any of the following characters: \\ / : * ? \" < > |";
  dest_.Init(11, "vcs");
  EXPECT_EQ(ShownForName("   "), "Data File Destination Filename is a required field.");
  EXPECT_EQ(ShownForName(" $a"), "Data File Destination Filename cannot contain spaces.");
  EXPECT_EQ(ShownForName("$YY$MM"), "The first character of the filename must be AlphaNumeric. ");
  EXPECT_EQ(ShownForName("v$YY$MM$DD$HH$MI"), "");
  EXPECT_EQ(ShownForName("\U0001D441"), "");  // a pair whose first half has the low byte of '5'
  EXPECT_EQ(ShownForName("vv$YY$MM$DD$HH$MI"), tooLong);
  EXPECT_EQ(ShownForName("a<b"), tooLong);
  EXPECT_TRUE(dest_.txtFilename.HasFocus());
  dest_.SetMaxLength(0);
  EXPECT_NE(ShownForName("a"), "");
}

TEST_F(Destination, ExtensionStandsApartFromTheName) {
  dest_.SetExtension("vcs");
  EXPECT_EQ(dest_.lblExtension.Caption(), ".vcs");
  dest_.SetExtension(".vcsa1");
  EXPECT_EQ(dest_.lblExtension.Caption(), ".vcs");
  dest_.SetFilename("data.txt");
  EXPECT_EQ(dest_.txtFilename.Text(), "data");
  EXPECT_EQ(dest_.Filename(), "data.vcs");
  dest_.txtFilename.Type(".v s\b1");
  EXPECT_EQ(dest_.txtFilename.Text(), "datav1");
  EXPECT_EQ(host_.beeper->beeps, 0);
  dest_.txtFilename.MoveCaret(4);
  dest_.txtFilename.Paste(".x.y.");
  EXPECT_EQ(dest_.Filename(), "dataxyv1.vcs");
  EXPECT_EQ(dest_.txtFilename.CaretPosition(), 6U);
  dest_.SetExtension(".\xC3\xA9t\xC3\xA9");  // four characters
  EXPECT_EQ(dest_.lblExtension.Caption(), ".\xC3\xA9t\xC3\xA9");
}

TEST_F(Destination, BrowsingFillsTheFolder) {
  int changes = 0;
  dest_.Changed.Connect([&] { ++changes; });
  dest_.cmdBrowse.Click();
  EXPECT_EQ(dest_.Path(), "");
  host_.folders->answer = "/data";
  dest_.cmdBrowse.Click();
  EXPECT_EQ(dest_.Path(), "/data");
  EXPECT_EQ(changes, 1);
  page_.WindowWanted.Connect([](WindowHandle& wanted) { wanted = 77; });
  dest_.cmdBrowse.Click();
  EXPECT_EQ(changes, 2) << "the same folder";
  EXPECT_EQ(host_.folders->owner, 77U);
  host_.folders->fails = true;
  EXPECT_NO_THROW(dest_.cmdBrowse.Click());
  dest_.SetEnabled(false);
  EXPECT_FALSE(dest_.txtFilename.Enabled());
}

TEST_F(Destination, PreviewShowsTheNameOfNow) {
  dest_.Init(11, ".hom", "", "h$YY$MM$DD$HH$MI");
  EXPECT_EQ(dest_.lblPreview.Caption(), "Now: h2603091305.hom  (11 of 11 characters)");
  dest_.SetFilename("h$HH12");
  EXPECT_EQ(dest_.lblPreview.Caption(), "Now: h01.hom  (counts as 5 of 11 characters)");
  dest_.SetFilename("");
  EXPECT_EQ(dest_.lblPreview.Caption(), "");
  const NameTokens tokens{host_.session->now, "ops", 42};
  EXPECT_EQ(ExpandNamePattern("$HH12$USER-$ID$$x$yy", tokens), "01ops-0000042$$x$yy");
}

}  // namespace
}  // namespace kiv
