#include "editor/general_tab.h"

namespace kiv {

DataFileField::DataFileField(XKivDataFileDestination& destination, const DataFileNames& names,
                             WhenEmpty whenEmpty, Place<std::string> folder, Place<std::string> name,
                             std::function<std::int32_t()> studyId)
    : destination_(destination),
      names_(names),
      folder_(std::move(folder)),
      name_(std::move(name)),
      studyId_(std::move(studyId)) {
  rules_.Append(destination.PathChecks());
  rules_.Append(destination.FilenameChecks());
  // All kinds share the folder.
  remembered_.push_back({host::remembered::kDatafilePath, [this] { return destination_.Path(); },
                         [this](const std::string& path) { destination_.SetPath(path); }, WhenEmpty::Show});
  remembered_.push_back({names.remembered, [this] { return destination_.txtFilename.Text(); },
                         [this](const std::string& pattern) { destination_.SetFilename(pattern); },
                         whenEmpty});
}

void DataFileField::Prepare() {
  destination_.Init(kMaxDataFileName, std::string(names_.extension));
}

void DataFileField::ShowNew() {
  ShowIdentifier();
  destination_.SetPath({});
  destination_.SetFilename(std::string(names_.pattern));
}

void DataFileField::ShowStored() {
  ShowIdentifier();
  destination_.SetPath(folder_.read());
  destination_.SetFilename(name_.read());
}

void DataFileField::ShowIdentifier() {
  destination_.SetStudyID(studyId_());
}

void DataFileField::Save() {
  folder_.write(destination_.Path());
  name_.write(destination_.Filename());
}

}  // namespace kiv
