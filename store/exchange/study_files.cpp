#include "store/exchange/study_files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <utility>

#include "store/exchange/study_json.h"
#include "store/whole_file.h"

namespace kiv::store {

namespace {

std::string NameOf(const std::vector<host::Document>& scenarios, std::int32_t id) {
  const auto found = std::ranges::find(scenarios, id, &host::Document::id);
  return found == scenarios.end() ? std::string() : found->name;
}

StoreError NotWritten(const std::string& file, const std::string& reason) {
  return StoreError("The file \"" + file + "\" was not written: " + reason + ". Choose another file.");
}

bool IsDatabaseFile(const QString& name) {
  constexpr QByteArrayView kMark("SQLite format 3");
  QFile file(name);
  return file.open(QIODevice::ReadOnly) && file.read(kMark.size()) == kMark;
}

}  // namespace

std::string ExportStudies(const StudyStore& store, std::vector<std::int32_t> ids) {
  if (ids.empty()) {
    for (const StudySummary& study : store.List()) ids.push_back(study.id);
  }
  std::ranges::sort(ids);
  ids.erase(std::ranges::unique(ids).begin(), ids.end());
  const std::vector<host::Document> scenarios = store.Scenarios();
  std::vector<NamedStudy> studies;
  studies.reserve(ids.size());
  for (const std::int32_t id : ids) {
    Study study = store.Load(id);
    const std::int32_t scenario = study.record->ScenarioID();
    studies.push_back({std::move(study), NameOf(scenarios, scenario)});
  }
  return ExportText(studies);
}

void WriteStudyFile(const std::string& file, const std::string& text) {
  const QString name = QString::fromStdString(file);
  const QFileInfo info(name);
  if (file.empty()) throw StoreError("The name of the file to write is missing.");
  if (info.exists() && !info.isFile()) throw NotWritten(file, "it is no plain file");
  if (IsDatabaseFile(name)) throw NotWritten(file, "it is a database, which an export must not replace");
  QSaveFile output(name);
  const bool written =
      output.open(QIODevice::WriteOnly) &&
      output.write(text.data(), static_cast<qint64>(text.size())) == static_cast<qint64>(text.size()) &&
      output.commit();
  if (!written) throw NotWritten(file, output.errorString().toStdString());
}

std::string ReadStudyFile(const std::string& file) {
  try {
    return ReadWholeFile(std::filesystem::path(std::u8string(file.begin(), file.end())));
  } catch (const StoreError& error) {
    throw StoreError(std::string("cannot be read: ") + error.what());
  }
}

}  // namespace kiv::store
