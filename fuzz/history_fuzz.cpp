// What the history keeps, changed by whoever can write the database: two contents, a line each.

#include "fuzz/studies.h"
#include "fuzz/target.h"
#include "store/exchange/json_text.h"
#include "store/exchange/study_json.h"
#include "store/history/packed_text.h"
#include "store/history/study_difference.h"
#include "store/store_error.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

/// What StudyHistory::Content gives of it; empty when that refuses it.
std::string ContentOf(const std::string& stored) {
  try {
    std::string content = store::Unpacked(stored);
    if (!content.empty()) store::CheckWrittenJson(content);
    return content;
  } catch (const store::StoreError& refusal) {
    Require(*refusal.what() != '\0', "a refusal says why");
    return {};
  }
}

/// Whether this version can bring the content back.
bool Restore(const std::string& content) {
  try {
    RequireKept(store::ReadKept(content));
    return true;
  } catch (const store::StoreError& refusal) {
    Require(std::string_view(refusal.what()).ends_with("Choose another revision."),
            "a refusal says what to do", refusal.what());
    return false;
  }
}

/// Long enough to be compressed.
void RequirePacked(const std::string& text) {
  std::string content = "{";
  while (content.size() < 9000) content += text + ' ';
  Require(store::Unpacked(store::Packed(content)) == content, "what is packed can be unpacked");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using Kind = store::StudyDifference::Kind;
  TheHost();
  Input input(data, size);
  const std::string before = input.Line();
  const std::string after = input.Line();
  if (input.Choice()) RequirePacked(after);
  const std::string old = ContentOf(before);
  const std::string now = ContentOf(after);
  const bool bothWhole = !old.empty() && !now.empty() && Restore(old) && Restore(now);
  const auto differences = store::DifferencesBetween(old, now);
  const auto back = store::DifferencesBetween(now, old);
  Require(!bothWhole || differences.size() == back.size(), "a change back is as large as the change",
          old + "\n" + now);
  Require(differences.empty() == store::SummaryOf(differences).empty(), "a difference has a name", now);
  for (const store::StudyDifference& difference : differences) {
    Require(difference.kind != Kind::Added || difference.before.empty(), "what is added was not there");
    Require(difference.kind != Kind::Removed || difference.after.empty(), "what is removed is gone");
  }
  Require(store::DifferencesBetween(now, now).empty(), "a state does not differ from itself", now);
  return 0;
}
