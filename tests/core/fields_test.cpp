#include "core/fields.h"

#include <gtest/gtest.h>

#include "core/study_row.h"
#include "plm/plm_data.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

/// A record whose columns came with three layouts of the database.
struct Grown {
  std::int32_t id = 0;
  std::string first = "1";
  std::string second = "2";
  std::string third = "3";
  std::string fourth = "4";

  std::int32_t ID() const { return id; }
  static std::span<const RecordField<Grown>> Fields() {
    static const RecordField<Grown> fields[] = {
        {"Id", &Grown::id, FieldRole::Key},
        {"First", &Grown::first},
        {"Second", &Grown::second, FieldRole::Optional, "N", 1},
        {"Third", &Grown::third, FieldRole::Optional, "N", 1},
        {"Fourth", &Grown::fourth, FieldRole::Optional, "-", 2},
    };
    return fields;
  }
};

TEST(OptionalColumns, AreAskedForByGenerationAtEveryStatement) {
  const test::FakeHost host;
  constexpr MSQL::StudyTable kTable = {"Grown Study", "Kiv_Grown"};
  host.database->missingColumns = {"KIV_GROWN.FOURTH"};
  const std::vector<std::string> questions = {"KIV_GROWN.SECOND", "KIV_GROWN.FOURTH"};

  Grown record;
  record.id = 7;
  MSQL::InsertStudyRow(kTable, "Insert", record);
  EXPECT_EQ(std::exchange(host.database->columnQuestions, {}), questions);
  MSQL::UpdateStudyRow(kTable, "Update", record);
  EXPECT_EQ(std::exchange(host.database->columnQuestions, {}), questions);
  EXPECT_EQ(
      host.database->statements,
      (std::vector<std::string>{"INSERT INTO Kiv_Grown (Id, First, Second, Third) VALUES (7, '1', '2', '3')",
                                "UPDATE Kiv_Grown SET First = '1', Second = '2', Third = '3' WHERE Id = 7"}));

  const test::FakeRows row = {{"Id", "First", "Second", "Third"}, {{9, "a", "b", "c"}}};
  const auto fields = Grown::Fields();
  const auto optional = FindOptionalFields(*host.database, kTable.name, fields);
  EXPECT_EQ(std::exchange(host.database->columnQuestions, {}), questions);
  LoadFields(record, test::FakeRecordset(row), fields, optional, 9);
  EXPECT_EQ(std::to_string(record.id) + record.first + record.second + record.third + record.fourth, "9abc-");

  host.database->missingColumns = {"KIV_GROWN.SECOND"};
  MSQL::InsertStudyRow(kTable, "Insert", record);
  EXPECT_EQ(host.database->statements.back(),
            "INSERT INTO Kiv_Grown (Id, First, Fourth) VALUES (9, 'a', '-')");
}

TEST(Records, AreTheSameByWhatIsStored) {
  const auto make = [](std::int32_t id, std::int32_t carrier) {
    auto record = std::make_unique<CKivPlmData>();
    record->Initialize(id, "/d", "p.plm", "tag");
    const auto mode = std::make_shared<CKivPlmMode>();
    mode->SetPlmMode(7);
    mode->SetCarrier(carrier);
    record->AddMode("Mode   7 FER1", mode);
    return record;
  };
  EXPECT_EQ(*make(1, 2), *make(5, 2));
  EXPECT_FALSE(*make(1, 2) == *make(1, 3));
  const StoredList modes = make(1, 2)->StoredLists().front();
  EXPECT_EQ(std::vector(modes.label.begin(), modes.label.end()), std::vector<std::string_view>{"PlmMode"});
}

}  // namespace
}  // namespace kiv
