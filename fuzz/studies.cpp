#include "fuzz/studies.h"

#include "fuzz/target.h"
#include "store/exchange/json.h"
#include "store/exchange/json_text.h"
#include "store/exchange/study_json.h"
#include "store/history/packed_text.h"
#include "store/history/study_difference.h"

namespace kiv::fuzz {

test::FakeHost& TheHost() {
  static test::FakeHost host;
  return host;
}

void RequireSame(const store::NamedStudy& left, const store::NamedStudy& right) {
  Require(left.scenario == right.scenario && left.study.name == right.study.name, "the names stay");
  const CKivStudyData& one = *left.study.record;
  const CKivStudyData& other = *right.study.record;
  Require(one.AppName() == other.AppName(), "the kind stays");
  for (const store::SharedNumber& number : store::kSharedNumbers) {
    Require((one.*number.get)() == (other.*number.get)(), "the numbers stay", number.name);
  }
  Require(*one.SubRecord() == *other.SubRecord(), "the data stay", KeptText(left) + "\n" + KeptText(right));
}

std::string KeptText(const store::NamedStudy& named) {
  return store::ContentText(named.study, named.scenario, named.study.record->SubRecord()->StoredLists());
}

void RequireKept(const store::NamedStudy& named) {
  const std::string text = KeptText(named);
  Require(store::Json::parse(text) == store::ContentOf(named.study, named.scenario),
          "both ways of writing say the same", text);
  store::CheckWrittenJson(text);
  Require(store::Unpacked(store::Packed(text)) == text, "what is packed can be unpacked", text);
  RequireSame(named, store::ReadKept(text));
  Require(store::DifferencesBetween(text, text).empty(), "a state does not differ from itself", text);
}

}  // namespace kiv::fuzz
