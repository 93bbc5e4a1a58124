#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/study.h"

/// Studies as text that files and the history keep; docs/export-format.md describes it.
namespace kiv::store {

/// The text of an exported file: the same studies give the same bytes. Raises StoreError for a study that is
/// not complete or has a text that is none.
std::string ExportText(const std::vector<NamedStudy>& studies);

/// What is wrong with the text of an exported file.
struct TextProblem {
  std::string study;  ///< such as `study 2 "Night"`; empty for the text as a whole
  std::string reason;
};

/// What an exported file has.
struct ExportContent {
  std::vector<NamedStudy> studies;  ///< those that are whole: new, without the number of their scenario
  std::vector<std::string> places;  ///< how problems name each of them
  std::vector<TextProblem> problems;
};

ExportContent ReadExport(std::string_view text);

/// One study that the history keeps, as ContentText wrote it. Raises StoreError when this version cannot read
/// it.
NamedStudy ReadKept(const std::string& content);

}  // namespace kiv::store
