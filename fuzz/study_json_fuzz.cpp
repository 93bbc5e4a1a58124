// Exported studies that anybody may have written: what is read whole is written and read back the same.

#include "fuzz/studies.h"
#include "fuzz/target.h"
#include "store/exchange/study_json.h"

using namespace kiv;
using namespace kiv::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TheHost();
  const store::ExportContent content = store::ReadExport(Input(data, size).Rest());
  Require(content.studies.size() == content.places.size(), "each study has a place");
  for (const store::TextProblem& problem : content.problems) {
    Require(!problem.reason.empty(), "a refusal says why");
  }
  const std::string text = store::ExportText(content.studies);
  const store::ExportContent again = store::ReadExport(text);
  Require(again.problems.empty(), "what was written can be read",
          again.problems.empty() ? text : again.problems[0].reason + "\n" + text);
  Require(again.studies.size() == content.studies.size(), "no study is lost", text);
  for (std::size_t i = 0; i < content.studies.size(); ++i) {
    RequireSame(content.studies[i], again.studies[i]);
    RequireKept(content.studies[i]);
  }
  Require(store::ExportText(again.studies) == text, "the same studies give the same bytes", text);
  return 0;
}
