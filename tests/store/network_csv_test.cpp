#include "store/network/network_csv.h"

#include <gmock/gmock.h>

namespace kiv::client {
namespace {

/// Records as `line: field|field`, faults as `line! fault`.
std::vector<std::string> Read(std::string_view text) {
  std::vector<std::string> records;
  store::CsvReader reader(text);
  while (reader.Next()) {
    std::string record = std::to_string(reader.Line()) + (reader.Fault().empty() ? ": " : "! ");
    record += reader.Fault();
    for (std::size_t i = 0; i < reader.Fields().size(); ++i) {
      record += (i == 0 ? "" : "|") + std::string(reader.Fields()[i]);
    }
    records.push_back(record);
  }
  EXPECT_EQ(reader.Position(), text.size());
  return records;
}

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(NetworkCsv, ReadsLinesQuotedValuesAndEmptyOnes) {
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read("\xEF\xBB\xBF\n\r\n"), IsEmpty());
  EXPECT_THAT(Read("\xEF\xBB\xBF"
                   "a,b\r\n1,\n\n,2"),
              ElementsAre("1: a|b", "2: 1|", "4: |2"));
  EXPECT_THAT(Read("\"a,\"\"b\"\"\",\"\",\"x\r\ny\"\r\n\"\"\"\"\nlast\n"),
              ElementsAre("1: a,\"b\"||x\r\ny", "3: \"", "4: last"));
  EXPECT_THAT(Read("a\rb, c \n"), ElementsAre("1: a\rb| c "));
}

TEST(NetworkCsv, AFaultHidesNothingThatFollows) {
  const std::string inside = "! a quotation mark stands inside a value that does not begin with one";
  const std::string after = "! text follows a closing quotation mark";
  const std::string open = "! a quotation mark is never closed";
  EXPECT_THAT(Read("a,b\"c\n1,2\n"), ElementsAre("1" + inside, "2: 1|2"));
  EXPECT_THAT(Read("\"a\"b,c\r\n1,2"), ElementsAre("1" + after, "2: 1|2"));
  // The mark that was forgotten on line 1 seems to be the one that opens on line 2.
  EXPECT_THAT(Read("\"a,b\n1,\"2\"\n3,4"), ElementsAre("1" + after, "2: 1|2", "3: 3|4"));
  EXPECT_THAT(Read("1,2\n\"a\n3,4\n"), ElementsAre("1: 1|2", "2" + open, "3: 3|4"));
}

}  // namespace
}  // namespace kiv::client
