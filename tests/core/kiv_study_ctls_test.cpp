#include "editor/kiv_study_ctls.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/drive_type.h"
#include "support/fake_host.h"

namespace kiv::MKivStudyCtls {
namespace {

TEST(CommonFunctions, CheckValuesAndTheirTexts) {
  EXPECT_EQ(CheckValueToYN(1), "Y");
  for (const int other : {-1, 0, 2}) EXPECT_EQ(CheckValueToYN(static_cast<std::int16_t>(other)), "N");
  EXPECT_EQ(YNToCheckValue("Y"), 1);
  for (const char* other : {"y", "N", "", "Y "}) EXPECT_EQ(YNToCheckValue(other), 0);
}

TEST(CommonFunctions, ItemDataIsFoundFirstToLast) {
  EXPECT_EQ(FindItemDataIndex({}, 5), -1);
  EXPECT_EQ(FindItemDataIndex({{"a", 17}, {"b", 5}, {"c", 5}}, 5), 1);
}

TEST(CommonFunctions, AlphaNumericLooksAtTheLowByteOnly) {
  EXPECT_TRUE(IsAlphaNumeric(""));
  EXPECT_TRUE(IsAlphaNumeric("aZ09"));
  EXPECT_TRUE(IsAlphaNumeric("\u0141"));  // Ł: its low byte is 'A'
  for (const char* text : {"_", "a b", "é", "$", "a-"}) EXPECT_FALSE(IsAlphaNumeric(text)) << text;
}

TEST(CommonFunctions, KeysInTheCollection) {
  auto collection = std::make_shared<KeyedCollection<int>>();
  collection->Add(nullptr, "k");
  EXPECT_TRUE(ExistsInCollection(collection, "k"));
  EXPECT_FALSE(ExistsInCollection(collection, "K"));
  EXPECT_TRUE(ExistsInCollection(std::shared_ptr<KeyedCollection<int>>(), "k"));
}

TEST(CommonFunctions, NumericKeyFilterBeepsAtWhatItSwallows) {
  const test::FakeHost host;
  for (const int key : {8, int{'0'}, int{'9'}}) {
    auto code = static_cast<std::int16_t>(key);
    NumericKeyFilter(code);
    EXPECT_EQ(code, key);
  }
  EXPECT_EQ(host.beeper->beeps, 0);
  for (const int key : {int{'a'}, int{' '}, int{'-'}, 13, 0x0661}) {
    auto code = static_cast<std::int16_t>(key);
    NumericKeyFilter(code);
    EXPECT_EQ(code, 0);
  }
  EXPECT_EQ(host.beeper->beeps, 5);
}

TEST(CommonFunctions, CharactersOfASet) {
  using enum CharSearch;
  using enum Comparison;
  EXPECT_EQ(FindCharInSet(1, "abc def", " ", InSet, Exact), 4);
  EXPECT_EQ(FindCharInSet(5, "abc def", " ", InSet, Exact), 0);
  EXPECT_EQ(FindCharInSet(1, "aaXa", "a", NotInSet, Exact), 3);
  EXPECT_EQ(FindCharInSet(1, "xyA", "a", InSet, Exact), 0);
  EXPECT_EQ(FindCharInSet(1, "xyA", "a", InSet, CaseBlind), 3);
  EXPECT_EQ(FindCharInSet(9, "abc", "a", NotInSet, Exact), 0);
  EXPECT_EQ(FindCharInSet(1, "ä#", "#", InSet, Exact), 2);  // characters, not bytes
}

TEST(CommonFunctions, LengthsOfExpandedNames) {
  const test::FakeHost host;
  const std::pair<const char*, int> patterns[] = {
      {"", 0},       {"$$", 0},        {"v$YY$MM$DD$HH$MI", 11},
      {"$ID", 7},    {"$IDlonger", 7}, {"x$USERy", 5},
      {"a$HH12", 5}, {"USERx", 4},     {"ID", 7},
      {"a$b", 2},    {"$yy", 2},       {"h$YYz$MM", 6},
      {"né$MI", 4},
  };
  for (const auto& [pattern, length] : patterns) EXPECT_EQ(PatternNameLength(pattern), length) << pattern;
}

TEST(DriveTypes, ByFileSystemAndMedium) {
  EXPECT_EQ(ClassifyFileSystem("ext4", Medium::Fixed), kDriveFixed);
  EXPECT_EQ(ClassifyFileSystem("overlay", Medium::Fixed), kDriveFixed);
  EXPECT_EQ(ClassifyFileSystem("vfat", Medium::Removable), kDriveRemovable);
  EXPECT_EQ(ClassifyFileSystem("nfs4", Medium::Fixed), kDriveRemote);
  EXPECT_EQ(ClassifyFileSystem("fuse.sshfs", Medium::Fixed), kDriveRemote);
  EXPECT_EQ(ClassifyFileSystem("iso9660", Medium::Removable), kDriveCdRom);
  EXPECT_EQ(ClassifyFileSystem("tmpfs", Medium::Fixed), kDriveRamDisk);
  EXPECT_EQ(DriveTypeDescription(0), "(unknown)");
  EXPECT_EQ(DriveTypeDescription(1), "");
  EXPECT_EQ(DriveTypeDescription(6), "RAM Disk");
  EXPECT_EQ(DriveTypeDescription(7), "");
}

TEST(DriveTypes, AreAskedOfTheFirstCharacter) {
  const std::pair<const char*, const char*> roots[] = {
      {"", ""},
      {R"(c:\data)", R"(c:\)"},
      {"d", R"(d:\)"},
      {R"(\\server\share)", R"(\:\)"},
  };
  for (const auto& [path, root] : roots) EXPECT_EQ(DriveRoot(path), root) << path;
}

TEST(DriveTypes, OfRealPlaces) {
  std::string description;
#ifdef _WIN32
  EXPECT_EQ(GetDriveTypeName("c:\\not\\there", description), kDriveFixed);
  EXPECT_EQ(description, "Fixed Drive");
#else
  EXPECT_EQ(GetDriveTypeName("/dev/shm/not/there", description), kDriveRamDisk);
  EXPECT_EQ(description, "RAM Disk");
#endif
  std::string current;
  EXPECT_EQ(GetDriveTypeName("", description),
            GetDriveTypeName(std::filesystem::current_path().string(), current));
  EXPECT_EQ(description, current);
}

}  // namespace
}  // namespace kiv::MKivStudyCtls
