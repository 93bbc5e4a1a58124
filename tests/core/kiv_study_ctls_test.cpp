#include "editor/kiv_study_ctls.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/drive_type.h"
#include "support/fake_host.h"

namespace kiv::MKivStudyCtls {
namespace {

TEST(CommonFunctions, CheckValuesAndTheirTexts) {
  EXPECT_EQ(CheckValueToYN(1), "Y");
  for (const int other : {-1, 0, 2}) EXPECT_EQ(CheckValueToYN(static_cast<std::int16_t>(other)), "N");
  EXPECT_EQ(YNToCheckValue("Y"), 1);
  for (const char* other : {"y", "N", "", "Y "}) EXPECT_EQ(YNToCheckValue(other), 0);
}

TEST(CommonFunctions, ItemsAndKeysAreFoundInTheirLists) {
  EXPECT_EQ(FindItemDataIndex({}, 5), -1);
  EXPECT_EQ(FindItemDataIndex({{"a", 17}, {"b", 5}, {"c", 5}}, 5), 1);
  auto collection = std::make_shared<KeyedCollection<int>>();
  collection->Add(nullptr, "k");
  EXPECT_TRUE(ExistsInCollection(collection, "k"));
  EXPECT_FALSE(ExistsInCollection(collection, "K"));
  EXPECT_TRUE(ExistsInCollection(std::shared_ptr<KeyedCollection<int>>(), "k"));
}

TEST(CommonFunctions, AlphaNumericLooksAtTheLowByteOnly) {
  EXPECT_TRUE(IsAlphaNumeric(""));
  EXPECT_TRUE(IsAlphaNumeric("aZ09"));
  EXPECT_TRUE(IsAlphaNumeric("\u0141"));  // Ł: its low byte is 'A'
  for (const char* text : {"_", "a b", "é", "$", "a-"}) EXPECT_FALSE(IsAlphaNumeric(text)) << text;
}

TEST(CommonFunctions, NumericKeyFilterBeepsAtWhatItSwallows) {
  const test::FakeHost host;
  int swallowed = 0;
  for (const int key : {8, int{'0'}, int{'9'}, int{'a'}, int{' '}, int{'-'}, 13, 0x0661}) {
    const bool kept = key == 8 || key == '0' || key == '9';
    auto code = static_cast<std::int16_t>(key);
    NumericKeyFilter(code);
    EXPECT_EQ(code, kept ? key : 0);
    swallowed += kept ? 0 : 1;
    EXPECT_EQ(host.beeper->beeps, swallowed);
  }
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
  const std::tuple<const char*, Medium, int> places[] = {{"ext4", Medium::Fixed, host::drive::kFixed},
                                                         {"overlay", Medium::Fixed, host::drive::kFixed},
                                                         {"vfat", Medium::Removable, host::drive::kRemovable},
                                                         {"nfs4", Medium::Fixed, host::drive::kRemote},
                                                         {"fuse.sshfs", Medium::Fixed, host::drive::kRemote},
                                                         {"iso9660", Medium::Removable, host::drive::kCdRom},
                                                         {"tmpfs", Medium::Fixed, host::drive::kRamDisk}};
  for (const auto& [system, medium, type] : places)
    EXPECT_EQ(ClassifyFileSystem(system, medium), type) << system;
  std::string descriptions;
  for (const int type : {0, 1, 6, 7}) descriptions += DriveTypeDescription(type) + "/";
  EXPECT_EQ(descriptions, "(unknown)//RAM Disk//");
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
  EXPECT_EQ(GetDriveTypeName("c:\\not\\there", description), host::drive::kFixed);
  EXPECT_EQ(description, "Fixed Drive");
#else
  EXPECT_EQ(GetDriveTypeName("/dev/shm/not/there", description), host::drive::kRamDisk);
  EXPECT_EQ(description, "RAM Disk");
#endif
  std::string current;
  EXPECT_EQ(GetDriveTypeName("", description),
            GetDriveTypeName(std::filesystem::current_path().string(), current));
  EXPECT_EQ(description, current);
}

}  // namespace
}  // namespace kiv::MKivStudyCtls
