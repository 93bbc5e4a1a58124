// Study databases that somebody else has written into: everything in them is shown or refused with a reason.
// Lines of an input are values that take the place of others; what follows an empty line are changed bytes.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "core/study_kinds.h"
#include "database/open.h"
#include "fuzz/studies.h"
#include "fuzz/target.h"
#include "session/study_problems.h"
#include "store/history/study_difference.h"
#include "support/rich_studies.h"
#include "support/temp_folder.h"
#include "support/test_store.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

const test::OpenFolder& Folder() {
  static const test::OpenFolder folder;
  return folder;
}

/// A database with two studies of each kind, one of them changed and one deleted.
const std::string& SoundDatabase() {
  static const std::string content = [] {
    const std::string file = Folder().File("sound.db");
    {
      test::TestStore store(database::OpenStudyDatabase(file, database::OpenMode::CreateIfMissing));
      store->Scenarios().Add("Night");
      for (const std::string& kind : test::RichKinds()) {
        store::Study study = store->New(kind);
        for (int variant = 0; variant < 2; ++variant) {
          test::Fill(study, variant);
          store->Save(study, "ann");
        }
        store->SaveCopy(study, "bob");
        store->Remove(study.record->ID(), "eve");
      }
    }
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }();
  return content;
}

/// One value of one row becomes another; whatever the tables forbid stays as it was.
void ChangeValue(database::SqlConnection& connection, const std::string& line) {
  static const std::vector<std::vector<std::string>> columns = [&connection] {
    std::vector<std::vector<std::string>> all;
    const auto rows = connection.OpenQuery(
        "SELECT m.name, c.name FROM sqlite_schema m, pragma_table_info(m.name) c WHERE m.type = 'table' AND "
        "(m.name LIKE 'kiv%') ORDER BY lower(m.name), c.cid",
        host::kQueryTimeoutSeconds);
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      all.push_back(
          {std::get<std::string>(rows->FieldAt(0).Value()), std::get<std::string>(rows->FieldAt(1).Value())});
    }
    return all;
  }();
  Input input(reinterpret_cast<const std::uint8_t*>(line.data()), line.size());
  const auto& column = columns[input.Byte() % columns.size()];
  const std::string row = std::to_string(input.Below(16));
  const bool plain = input.Choice();
  const Variant value = plain ? Variant(input.Number<std::int64_t>()) : Variant(input.Rest());
  try {
    // Several tables have no row numbers: the row is found by what stands in the column.
    const std::string& name = column[1];
    connection.ExecuteSql("UPDATE " + column[0] + " SET " + name + " = " +
                          connection.FormatValueList({&value, 1}) + " WHERE " + name + " IS (SELECT " + name +
                          " FROM " + column[0] + " LIMIT 1 OFFSET " + row + ")");
  } catch (const Error&) {
    return;
  }
}

/// Runs something that may refuse, but not without a reason.
template <class Look>
void Try(const Look& look) {
  try {
    look();
  } catch (const Error& refusal) {
    Require(*refusal.what() != '\0', "a refusal says why");
  }
}

void LookAtAll(test::TestStore& store) {
  std::vector<std::int32_t> ids;
  Try([&] {
    for (const store::StudySummary& line : store->List()) ids.push_back(line.id);
  });
  for (const auto id : ids) {
    Try([&] { session::CheckStudy(*store.operator->(), store->Load(id)); });
    Try([&] {
      std::string before;
      for (const store::HistoryEntry& entry : store->History().Entries(id)) {
        const std::string content = store->History().Content(id, entry.revision);
        store::SummaryOf(store::DifferencesBetween(std::exchange(before, content), content));
      }
    });
    Try([&] { store->Restore(id, 1, "ann"); });
    Try([&] { store->Remove(id, "eve"); });
  }
  Try([&] { store->History().DeletedStudies(); });
  Try([&] { store->Scenarios().List(); });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TheHost();
  Input input(data, size);
  std::string content = SoundDatabase();
  const std::string file = Folder().File("changed.db");
  std::filesystem::remove(file + "-journal");
  std::vector<std::string> values;
  for (std::string line = input.Line(); !line.empty(); line = input.Line()) values.push_back(line);
  while (!input.Empty()) content[input.Below(content.size())] = static_cast<char>(input.Byte());
  std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
  Try([&] {
    const auto connection = database::OpenStudyDatabase(file, database::OpenMode::MustExist);
    connection->ExecuteSql("PRAGMA synchronous = OFF");
    connection->ExecuteSql("PRAGMA foreign_keys = OFF");
    for (const std::string& line : values) ChangeValue(*connection, line);
    connection->ExecuteSql("PRAGMA foreign_keys = ON");
    test::TestStore store(connection);
    LookAtAll(store);
  });
  return 0;
}
